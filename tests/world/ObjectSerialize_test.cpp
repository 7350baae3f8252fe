#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>

#include "engine/core/EventLabels.h"
#include "engine/core/LogManager.h"
#include "engine/effects/Particle.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/presentation/ViewObject.h"
#include "engine/world/Object.h"
#include "tests/support/HeadlessEngine.h"

using ot::Object;
using ot::Vector;
using ot_test::logHas;

namespace {

class ObjectSerialize : public ot_test::HeadlessEngine {};

std::string bytesOf(const std::stringstream& ss) { return ss.str(); }

// An object with every attribute away from its default.
Object* makeChangedObject() {
  auto* p_o = new Object;
  p_o->setType("Courier");
  p_o->setVisible(false);
  p_o->setBox(ot::Box(Vector(-1, -2), 3, 4));
  p_o->setPosition(Vector(10.5f, 7.25f));
  p_o->setAltitude(3);
  p_o->setSolidness(ot::SOFT);
  p_o->setNoSoft(true);
  p_o->setVelocity(Vector(0, 0.5f));
  p_o->setAcceleration(Vector(0.125f, 0));
  ot::Shape shape;
  shape.setType(ot::SHAPE_TRIANGLE);
  shape.setSize(6);
  shape.setColor(ot::MAGENTA);
  shape.setOpacity(99);
  p_o->setShape(shape);
  ot::Path path;
  path.setPoints({Vector(1, 1), Vector(2, 2), Vector(3, 2)});
  p_o->setPath(path);
  p_o->setAvoidCollisions(true);
  p_o->registerInterest(ot::STEP_EVENT);
  p_o->registerInterest("courier-news");
  return p_o;
}

}  // namespace

TEST_F(ObjectSerialize, WritesTheMaskThenTheFieldsAsTheyLieInMemory) {
  auto* p_o = new Object;
  p_o->setId(7);
  p_o->setPosition(Vector(1.0f, 2.0f));
  std::stringstream ss;
  ASSERT_EQ(0, p_o->serialize(&ss, 0x21));
  EXPECT_EQ(std::string("\x21\0\0\0\x07\0\0\0\0\0\x80\x3f\0\0\0\x40", 16), bytesOf(ss));
  EXPECT_FALSE(p_o->isModified(Object::POSITION)) << "sent by hand counts as sent";
  EXPECT_TRUE(p_o->isModified(Object::TYPE));
}

TEST_F(ObjectSerialize, SecondWriteOfAnUnchangedObjectIsTheEmptyMask) {
  auto* p_o = new Object;
  std::stringstream first, second;
  p_o->serialize(&first);
  EXPECT_EQ(std::string("\xff\xff\x03\0", 4), bytesOf(first).substr(0, 4));
  p_o->serialize(&second);
  EXPECT_EQ(std::string(4, '\0'), bytesOf(second));
}

TEST_F(ObjectSerialize, EveryAttributeRoundTripsButThePathCursor) {
  Object* p_writer = makeChangedObject();
  ot::Path walked = p_writer->getPath();
  walked++;
  p_writer->setPath(walked);
  auto* p_reader = new Object;
  p_reader->registerInterest("reader-only");
  std::stringstream ss;
  ASSERT_EQ(0, p_writer->serialize(&ss));
  unsigned int mask = 0;
  ASSERT_EQ(0, p_reader->deserialize(&ss, &mask));
  EXPECT_EQ(0x3ffffu, mask);
  EXPECT_EQ(0u, p_reader->getModified()) << "what was read is no change to send back";

  EXPECT_EQ(0, p_reader->getPath().getIndex());
  walked.setIndex(0);
  EXPECT_EQ(walked, p_reader->getPath());
  // With the cursor set back, the two are equal in every compared field.
  p_writer->setPath(walked);
  EXPECT_TRUE(*p_reader == *p_writer) << p_reader->toString() << "\n" << p_writer->toString();
  EXPECT_EQ(-1, p_reader->unregisterInterest("reader-only")) << "interests are replaced, not added to";
}

TEST_F(ObjectSerialize, ViewObjectReaderStaysMarked) {
  auto* p_writer = new ot::ViewObject;
  p_writer->setViewString("Gold");
  p_writer->setValue(42);
  p_writer->setColor(ot::YELLOW);
  p_writer->setBorder(false);
  p_writer->setLocation(ot::BOTTOM_RIGHT);
  auto* p_reader = new ot::ViewObject;
  std::stringstream ss;
  ASSERT_EQ(0, p_writer->serialize(&ss));
  EXPECT_FALSE(p_writer->isModified());
  ASSERT_EQ(0, p_reader->deserialize(&ss));
  EXPECT_TRUE(*p_reader == *p_writer);
  EXPECT_EQ(ot::ViewObject::VALUE | ot::ViewObject::APPEARANCE, p_reader->getModified());
}

TEST_F(ObjectSerialize, ShortOrGarbledStreamsFailWithoutHarm) {
  Object* p_writer = makeChangedObject();
  std::stringstream full;
  p_writer->serialize(&full);
  const std::string bytes = bytesOf(full);
  for (size_t cut : {size_t{2}, size_t{20}, bytes.size() - 1}) {
    std::stringstream truncated(bytes.substr(0, cut));
    auto* p_reader = new Object;
    EXPECT_EQ(-1, p_reader->deserialize(&truncated)) << "cut at " << cut;
  }
  EXPECT_TRUE(logHas(logMessages(), "Object::deserialize(): Error! Stream eof."));
  // A type whose length claims far more than the stream holds.
  std::string garbled("\x40\0\0\0", 4);
  garbled += std::string("\xff\xff\xff\xff\xff\xff\xff\x7f", 8) + "abc";
  std::stringstream ss(garbled);
  auto* p_reader = new Object;
  EXPECT_EQ(-1, p_reader->deserialize(&ss));
  EXPECT_EQ("(Undefined)", p_reader->getType());
  EXPECT_TRUE(logHas(logMessages(), "Object::deserialize(): Error! Stream fail."));
}

TEST_F(ObjectSerialize, ParticlesWarnThenDoAsObjects) {
  ot::LogManager::getInstance().setLogLevel(1);
  auto* p_particle = new ot::Particle(2.0f, 10, 255, ot::RED);
  std::stringstream ss;
  EXPECT_EQ(0, p_particle->serialize(&ss, Object::POSITION));
  EXPECT_EQ(0, p_particle->deserialize(&ss));
  auto log = logMessages();
  EXPECT_TRUE(logHas(log, "Particle::serialize(): Warning!  Particles attributes are not serialized."));
  EXPECT_TRUE(logHas(log, "Particle::deserialize(): Warning!  Cannot deserialize particles."));
}

TEST_F(ObjectSerialize, AnimationFindsTheReadersSpriteByName) {
  auto& resources = ot::ResourceManager::getInstance();
  ASSERT_EQ(0, resources.loadSprite(
                   std::string(getenv("OSTREL_SOURCE_DIR")) + "/sprites/examples/coin-robust.txt", "coin"));
  auto* p_writer = new Object;
  p_writer->setSprite("coin");
  ot::Animation animation = p_writer->getAnimation();
  animation.setIndex(2);
  p_writer->setAnimation(animation, false);
  auto* p_reader = new Object;
  std::stringstream ss;
  p_writer->serialize(&ss, Object::ANIMATION);
  ASSERT_EQ(0, p_reader->deserialize(&ss));
  EXPECT_EQ(resources.getSprite("coin"), p_reader->getAnimation().getSprite());
  EXPECT_EQ(2, p_reader->getAnimation().getIndex());
  EXPECT_EQ(p_writer->getBox(), p_reader->getBox()) << "the sprite brings its box";
}
