#include "engine/effects/Particle.h"

#include <gtest/gtest.h>

#include "engine/core/EventOut.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

namespace {

using ParticleTest = ot_test::HeadlessEngine;

int particlesInWorld() { return ot::WorldManager::getInstance().objectsOfType("Particle").getCount(); }

TEST_F(ParticleTest, TakesIdZeroAndHandsItsIdBack) {
  auto* before = new ot_test::SpyObject();
  auto* p = new ot::Particle(1.0f, 5, 255, 1, 1, 1);
  new ot::Particle(1.0f, 5, 255, ot::GREEN);
  auto* after = new ot_test::SpyObject();
  EXPECT_EQ(0, p->getId());
  EXPECT_EQ(before->getId() + 1, after->getId());
  EXPECT_EQ(ot::SPECTRAL, p->getSolidness());
}

TEST_F(ParticleTest, RecolouringStoresACustomShape) {
  auto* p = new ot::Particle(1.0f, 10, 255, 1, 2, 3);
  p->setModified(0);
  p->setColor(ot::BLUE);
  unsigned char r = 0, g = 0, b = 0;
  ot::colorToRGB(ot::BLUE, r, g, b);
  EXPECT_TRUE(p->isModified(ot::Object::SHAPE));
  EXPECT_EQ(ot::CUSTOM, p->getShape().getColor());
  EXPECT_EQ(b, p->getShape().getB());
}

TEST_F(ParticleTest, AgeNIsMarkedOnTheNthStep) {
  new ot::Particle(1.0f, 3, 255, 1, 1, 1);
  ot_test::runFrames(2);
  EXPECT_EQ(1, particlesInWorld());
  ot_test::runFrames(1);
  EXPECT_EQ(0, particlesInWorld());
}

TEST_F(ParticleTest, AgeZeroOrLeavingTheViewEndsOnTheFirstStep) {
  new ot::Particle(1.0f, 0, 255, 1, 1, 1);
  new ot::Particle(1.0f, -5, 255, 1, 1, 1);
  auto* leaving = new ot::Particle(1.0f, 100, 255, 1, 1, 1);
  ot::EventOut out;
  EXPECT_EQ(1, leaving->eventHandler(&out));
  ot_test::runFrames(1);
  EXPECT_EQ(0, particlesInWorld());
}

}  // namespace
