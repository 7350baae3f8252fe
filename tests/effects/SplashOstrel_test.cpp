#include "engine/effects/SplashOstrel.h"

#include <tuple>
#include <vector>

#include "engine/core/EventKeyboard.h"
#include "engine/core/EventStep.h"
#include "engine/core/GameManager.h"
#include "engine/presentation/Sprite.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

namespace {

using ot::Vector;

using SplashOstrelTest = ot_test::HeadlessEngine;

// Frames, width, height and colour, after checking that each frame fills its size.
std::tuple<int, int, int, ot::Color> look(const ot::Object* p_o) {
  const ot::Sprite* p_sprite = p_o->getAnimation().getSprite();
  for (int i = 0; i < p_sprite->getFrameCount(); i++) {
    EXPECT_EQ(static_cast<size_t>(p_sprite->getWidth() * p_sprite->getHeight()),
              p_sprite->getFrame(i).getString().size());
  }
  return {p_sprite->getFrameCount(), p_sprite->getWidth(), p_sprite->getHeight(), p_sprite->getColor()};
}

TEST_F(SplashOstrelTest, RisesFromBelowInThirtySteps) {
  const Vector end(62.0f, 13.0f);
  auto* p_creature = new ot::SplashOstrel(end);
  // Six below the 24-row view, rising by a thirtieth of the way each step.
  EXPECT_EQ(Vector(62.0f, 30.0f), p_creature->getPosition());
  EXPECT_EQ(Vector(0.0f, -17.0f / 30), p_creature->getVelocity());
  EXPECT_EQ(std::make_tuple(2, 11, 7, ot::BLUE), look(p_creature));
  EXPECT_EQ(2, p_creature->getAnimation().getSprite()->getSlowdown());
  // Handled after the creature, so it sees each step's change before the drawing.
  std::vector<int> resting_index;
  auto* p_spy = new ot_test::SpyObject;
  p_spy->setSolidness(ot::SPECTRAL);
  p_spy->registerInterest(ot::STEP_EVENT);
  p_spy->on_event = [&](ot_test::SpyObject&, const ot::Event*) {
    ot::Animation animation = p_creature->getAnimation();
    if (animation.getSprite()->getFrameCount() == 1) resting_index.push_back(animation.getIndex());
  };

  ot_test::runFrames(32);
  // Stopped at its end, or a rounding step past it.
  EXPECT_EQ(0.0f, p_creature->getSpeed());
  EXPECT_LE(p_creature->getPosition().getY(), end.getY());
  EXPECT_GT(p_creature->getPosition().getY(), end.getY() - 17.0f / 30);
  Vector held = p_creature->getPosition();

  ot_test::runFrames(12);
  EXPECT_EQ(held, p_creature->getPosition());
  EXPECT_EQ(std::make_tuple(2, 11, 7, ot::BLUE), look(p_creature));
  ot_test::runFrames(1);  // the 45th step: the resting picture, a column to the left
  EXPECT_EQ(std::make_tuple(1, 9, 6, ot::GREEN), look(p_creature));
  EXPECT_EQ(held - Vector(1.0f, 0.0f), p_creature->getPosition());
  // Past its only frame, so its first drawing shows nothing and wraps it round.
  EXPECT_EQ(std::vector<int>{1}, resting_index);
  ot_test::runFrames(1);
  EXPECT_EQ((std::vector<int>{1, 0}), resting_index);

  ot_test::runFrames(100);
  EXPECT_EQ(29, ot::GameManager::getInstance().getStepCount());  // game over on its 75th step
  EXPECT_EQ(0, ot::WorldManager::getInstance().objectsOfType("SplashOstrel").getCount());
}

TEST_F(SplashOstrelTest, AKeyEndsTheLoop) {
  auto* p_creature = new ot::SplashOstrel(Vector(40.0f, 12.0f));
  ot::EventKeyboard key;
  EXPECT_EQ(1, p_creature->eventHandler(&key));
  EXPECT_TRUE(ot::GameManager::getInstance().getGameOver());
  auto* p_other = new ot::SplashOstrel(Vector(40.0f, 12.0f));
  ot::EventStep step;
  EXPECT_EQ(0, p_other->eventHandler(&step));
  EXPECT_EQ(0, p_other->eventHandler(&key));
  ot_test::runFrames(1);  // the deletions of this frame's update
  EXPECT_EQ(0, ot::WorldManager::getInstance().objectsOfType("SplashOstrel").getCount());
}

}  // namespace
