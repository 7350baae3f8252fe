#include "engine/effects/Firework.h"

#include <gtest/gtest.h>

#include "engine/core/EventStep.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"

namespace {

using FireworkTest = ot_test::HeadlessEngine;

ot::ObjectList ofType(const char* type) { return ot::WorldManager::getInstance().objectsOfType(type); }

TEST_F(FireworkTest, StepLaysStillOpaqueTrailAtItsPosition) {
  auto* f = new ot::Firework(4.0f, 9, 100, 1, 2, 3);
  f->setPosition(ot::Vector(12.0f, 7.0f));
  f->setVelocity(ot::Vector(0.5f, 0.0f));
  ot::EventStep step;
  EXPECT_EQ(1, f->eventHandler(&step));

  ot::ObjectList trail = ofType("Particle");
  ASSERT_EQ(1, trail.getCount());
  auto* p = static_cast<ot::Particle*>(trail[0]);
  EXPECT_EQ(ot::Vector(12.0f, 7.0f), p->getPosition());
  EXPECT_EQ(ot::Vector(), p->getVelocity());
  EXPECT_EQ(2, p->getAge());
  EXPECT_FLOAT_EQ(2.0f, p->getShape().getSize());
  EXPECT_EQ(255, p->getShape().getOpacity());
  EXPECT_EQ(3, p->getShape().getB());
}

TEST_F(FireworkTest, LastStepStillLaysATrailThatLivesOneStep) {
  new ot::Firework(2.0f, 1, 255, 1, 2, 3);
  ot_test::runFrames(1);
  EXPECT_EQ(0, ofType("Firework").getCount());
  EXPECT_EQ(1, ofType("Particle").getCount());
  ot_test::runFrames(1);
  EXPECT_EQ(0, ofType("Particle").getCount());
}

}  // namespace
