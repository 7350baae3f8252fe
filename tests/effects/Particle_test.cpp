#include "engine/effects/Particle.h"

#include "engine/core/EventOut.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using ParticleTest = ot_test::HeadlessEngine;

TEST_F(ParticleTest, IsASpectralCircleOnTop) {
  auto* p_before = new ot_test::SpyObject();
  auto* p = new ot::Particle(2.5f, 5, 77, 1, 2, 3);
  auto* p_green = new ot::Particle(1.0f, 5, 255, ot::GREEN);  // refills the shared Shape
  EXPECT_EQ(p_before->getId() + 1, (new ot_test::SpyObject())->getId());
  auto looks = [](ot::Particle* q) {
    ot::Shape s = q->getShape();
    return std::make_tuple(q->getId(), q->getSolidness(), q->getAltitude(), s.getType(), s.getColor(),
                           s.getSize(), int{s.getOpacity()}, int{s.getR()}, int{s.getG()}, int{s.getB()});
  };
  EXPECT_EQ(std::make_tuple(0, ot::SPECTRAL, 4, ot::SHAPE_CIRCLE, ot::CUSTOM, 2.5f, 77, 1, 2, 3), looks(p));
  EXPECT_EQ(std::make_tuple(0, ot::SPECTRAL, 4, ot::SHAPE_CIRCLE, ot::CUSTOM, 1.0f, 255, 0, 255, 0),
            looks(p_green));
  p->setModified(0);
  p->setColor(ot::BLUE);
  EXPECT_TRUE(p->isModified(ot::Object::SHAPE));
  EXPECT_EQ(std::make_tuple(0, ot::SPECTRAL, 4, ot::SHAPE_CIRCLE, ot::CUSTOM, 2.5f, 77, 0, 0, 255), looks(p));
  ot::Event other;
  EXPECT_EQ(0, p->eventHandler(&other));
}

TEST_F(ParticleTest, AgeNIsMarkedOnTheNthStep) {
  auto particles = [] { return ot::WorldManager::getInstance().objectsOfType("Particle").getCount(); };
  new ot::Particle(1.0f, 3, 255, 1, 1, 1);
  ot_test::runFrames(2);
  EXPECT_EQ(1, particles());
  new ot::Particle(1.0f, 0, 255, 1, 1, 1);
  ot::EventOut out;
  EXPECT_EQ(1, (new ot::Particle(1.0f, 100, 255, 1, 1, 1))->eventHandler(&out));
  ot_test::runFrames(1);
  EXPECT_EQ(0, particles());
}
