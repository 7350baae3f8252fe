#include "engine/effects/Splash.h"

#include <ostream>
#include <string>
#include <vector>

#include "engine/core/Config.h"
#include "engine/core/EventKeyboard.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/platform/Platform.h"
#include "engine/presentation/InputManager.h"
#include "engine/presentation/Sprite.h"
#include "engine/world/WorldManager.h"
#include "tests/support/FakeClock.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

namespace {

using ot::Vector;

int countOf(const char* type) { return ot::WorldManager::getInstance().objectsOfType(type).getCount(); }

void pressKey() {
  ot::EventKeyboard key;
  key.setKey(ot::Keyboard::A);
  key.setKeyboardAction(ot::KEY_PRESSED);
  ot::InputManager::getInstance().onEvent(&key);
}

struct Sequence {
  const char* name;
  int key_step;        // -1 for none
  int frames;          // how long the loop ran
  bool creature_seen;  // whether the SplashOstrel ever existed
};

// Test lists show the case by its name.
void PrintTo(const Sequence& sequence, std::ostream* p_out) { *p_out << sequence.name; }

class SplashRun : public ot_test::HeadlessEngine, public ::testing::WithParamInterface<Sequence> {};

TEST_P(SplashRun, EndsAfterNinetyStepsOrOnAKey) {
  ot::LogManager::getInstance().setLogLevel(10);
  const Sequence sequence = GetParam();
  auto* p_spy = new ot_test::SpyObject;
  p_spy->setSolidness(ot::SPECTRAL);
  p_spy->registerInterest(ot::STEP_EVENT);
  bool creature_seen = false;
  p_spy->on_event = [&](ot_test::SpyObject& spy, const ot::Event*) {
    creature_seen |= countOf("SplashOstrel") > 0;
    if (spy.steps.back() == sequence.key_step) pressKey();
  };
  ot_test::FakeClock clock;
  ot_test::FakeClock::stopAfterSleeps(200);  // only if the sequence failed to end
  EXPECT_EQ(0, ot::splash());
  EXPECT_EQ(sequence.frames, ot::GameManager::getInstance().getStepCount());
  EXPECT_EQ(sequence.creature_seen, creature_seen);
  EXPECT_EQ(0, countOf("Splash") + countOf("SplashOstrel"));
  std::vector<std::string> log = logMessages();
  EXPECT_EQ(1, ot_test::logCount(log, "splash(): Started."));
  EXPECT_EQ("splash(): Finished.", log.back());
  // Game over is cleared again for the game that follows.
  ot_test::runFrames(3);
  EXPECT_EQ(3, ot::GameManager::getInstance().getStepCount());
}

INSTANTIATE_TEST_SUITE_P(Keys, SplashRun,
                         ::testing::Values(Sequence{"NoKey", -1, 90, true},  // 15 + 30 + 15 + 30 steps
                                           Sequence{"WhileSlidingIn", 5, 6, false},
                                           Sequence{"OnTheStepThatWouldSendTheCreature", 14, 15, false},
                                           Sequence{"WhileBothFly", 20, 21, true},
                                           Sequence{"AtRest", 70, 71, true}),
                         [](const ::testing::TestParamInfo<Sequence>& param) { return param.param.name; });

using SplashTest = ot_test::HeadlessEngine;

TEST_F(SplashTest, RefusedBeforeStartUpWithItsMessage) {
  ot::GameManager::getInstance().shutDown();
  // With the log closed its lines go to standard error.
  int result = 0;
  std::string said = ot::platform::captureStandardError([&] { result = ot::splash(); });
  EXPECT_EQ(-1, result);
  EXPECT_NE(std::string::npos,
            said.find("splash(): Error! Cannot run splash screen until game manger is started.\n"));
  EXPECT_EQ(0, countOf("Splash"));
  ot::GameManager::getInstance().startUp();
}

TEST_F(SplashTest, NameFliesInFromPastTheRightEdge) {
  auto* p_name = new ot::Splash;
  // Half the 47-wide name past the 80-wide view, on the middle row.
  EXPECT_EQ(Vector(103.5f, 12.0f), p_name->getPosition());
  EXPECT_EQ(Vector(-74.5f / 16, 0.0f), p_name->getVelocity());
  ot_test::runFrames(15);
  Vector stop = p_name->getPosition();
  EXPECT_EQ(Vector(103.5f - 14 * 74.5f / 16, 12.0f), stop);
  EXPECT_EQ(std::make_pair(1, 0.0f), std::make_pair(p_name->getAnimation().getIndex(), p_name->getSpeed()));
  ot::ObjectList creatures = ot::WorldManager::getInstance().objectsOfType("SplashOstrel");
  ASSERT_EQ(1, creatures.getCount());
  EXPECT_EQ(stop.getX() + 24.0f, creatures[0]->getPosition().getX());
  ot_test::runFrames(5);
  EXPECT_EQ(std::make_pair(stop, 1),
            std::make_pair(p_name->getPosition(), p_name->getAnimation().getIndex()));
}

TEST_F(SplashTest, FrameTimesBelowTwoMoveTheNameAsTwoDoes) {
  for (int frame_time : {0, 1, 2}) {
    ot::Config::getInstance().setFrameTime(frame_time);
    auto* p_name = new ot::Splash;
    EXPECT_EQ(Vector(-74.5f, 0.0f), p_name->getVelocity()) << frame_time;
    ot::WorldManager::getInstance().markForDelete(p_name);
  }
}

TEST_F(SplashTest, UprightNameLeavesTheCreaturesLandingColumnsClear) {
  auto* p_name = new ot::Splash;
  const ot::Sprite* p_sprite = p_name->getAnimation().getSprite();
  ASSERT_EQ(2, p_sprite->getFrameCount());
  EXPECT_EQ(std::make_tuple(std::string("splash"), 47, 8, ot::GREEN),
            std::make_tuple(p_sprite->getLabel(), p_sprite->getWidth(), p_sprite->getHeight(),
                            p_sprite->getColor()));
  for (int frame : {0, 1}) EXPECT_EQ(47u * 8, p_sprite->getFrame(frame).getString().size()) << frame;
  // The creature's 11 columns centre 24 past the name's: its last 6 columns overlap.
  ot::Frame upright = p_sprite->getFrame(1);
  for (int row = 0; row < 8; row++) {
    for (int column = 41; column < 47; column++)
      EXPECT_EQ(' ', upright.getChar(column, row, ot::NONE)) << row << "," << column;
  }
}

}  // namespace
