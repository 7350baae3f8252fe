#include "engine/effects/Firework.h"

#include "engine/core/EventStep.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"

using FireworkTest = ot_test::HeadlessEngine;

TEST_F(FireworkTest, EachStepLaysAStillOpaqueTrail) {
  auto made = [](const char* type) { return ot::WorldManager::getInstance().objectsOfType(type); };
  new ot::Firework(2.0f, 1, 255, 1, 2, 3);
  ot_test::runFrames(1);
  EXPECT_EQ(std::make_pair(0, 1), std::make_pair(made("Firework").getCount(), made("Particle").getCount()));
  ot_test::runFrames(1);
  EXPECT_EQ(0, made("Particle").getCount());
  auto* p_firework = new ot::Firework(4.0f, 9, 100, 1, 2, 3);
  p_firework->setPosition(ot::Vector(12.0f, 7.0f));
  p_firework->setVelocity(ot::Vector(0.5f, 0.0f));
  ot::EventStep step;
  EXPECT_EQ(1, p_firework->eventHandler(&step));
  ASSERT_EQ(1, made("Particle").getCount());
  auto* p_trail = static_cast<ot::Particle*>(made("Particle")[0]);
  EXPECT_EQ(std::make_tuple(ot::Vector(0.0f, 0.01f), ot::Vector(12.0f, 7.0f), ot::Vector(), 2, 2.0f, 255, 3),
            std::make_tuple(p_firework->getAcceleration(), p_trail->getPosition(), p_trail->getVelocity(),
                            p_trail->getAge(), p_trail->getShape().getSize(),
                            int{p_trail->getShape().getOpacity()}, int{p_trail->getShape().getB()}));
}
