#include "engine/world/Object.h"

#include <cstdlib>

#include "engine/network/NetworkManager.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using namespace ot;
using namespace ot_test;

namespace {

class ObjectTest : public HeadlessEngine {};

Path pathOf(std::vector<Vector> points) {
  Path path;
  path.setPoints(std::move(points));
  return path;
}

struct MaskCase {
  const char* setter;
  void (*act)(Object&);
  unsigned int bits;
};

// Each runs on an object with the interest "x" and a path whose first node it
// stands on; at speed 0 the walk reaches that node but not the next.
const MaskCase kMaskCases[] = {
    {"setId, same id", [](Object& o) { o.setId(o.getId()); }, 0},
    {"setId", [](Object& o) { o.setId(o.getId() + 1000); }, Object::ID},
    {"setActive", [](Object& o) { o.setActive(false); }, Object::ACTIVE},
    {"setVisible", [](Object& o) { o.setVisible(false); }, Object::VISIBLE},
    {"registerInterest", [](Object& o) { o.registerInterest("y"); }, Object::EVENTS},
    {"unregisterInterest", [](Object& o) { o.unregisterInterest("x"); }, Object::EVENTS},
    {"setBox", [](Object& o) { o.setBox(Box(Vector(-1, -1), 2, 2)); }, Object::BOX},
    {"setPosition, same place", [](Object& o) { o.setPosition(Vector(1, 1)); }, 0},
    {"setType, same type", [](Object& o) { o.setType(o.getType()); }, Object::TYPE},
    {"setSprite", [](Object& o) { o.setSprite("coin"); }, Object::BOX},
    {"setSprite, unknown", [](Object& o) { o.setSprite("nothing"); }, 0},
    {"setAnimation", [](Object& o) { o.setAnimation(Animation()); }, Object::ANIMATION},
    {"setAltitude, refused", [](Object& o) { o.setAltitude(9); }, 0},
    {"setSolidness", [](Object& o) { o.setSolidness(SOFT); }, Object::SOLIDNESS},
    {"setVelocity", [](Object& o) { o.setVelocity(Vector(3, 4)); }, Object::SPEED | Object::DIRECTION},
    {"setDirection", [](Object& o) { o.setDirection(Vector(1, 0)); }, 0},
    {"setShape", [](Object& o) { o.setShape(Shape()); }, Object::SHAPE},
    {"setPath", [](Object& o) { o.setPath(pathOf({Vector(5, 5)})); }, Object::PATH},
    {"path walk reaching a node", [](Object& o) { o.followPath(); }, Object::PATH},
    {"setFollowPath(false)", [](Object& o) { o.setFollowPath(false); }, Object::FOLLOW_PATH},
    {"setAvoidCollisions", [](Object& o) { o.setAvoidCollisions(true); }, Object::AVOID_COLLISIONS},
};

}  // namespace

TEST_F(ObjectTest, EachSetterMarksOnlyItsOwnBit) {
  std::string coin = std::string(std::getenv("OSTREL_SOURCE_DIR")) + "/sprites/examples/coin-simple.txt";
  ASSERT_EQ(0, ResourceManager::getInstance().loadSprite(coin, "coin"));
  for (const MaskCase& c : kMaskCases) {
    auto* p_o = new Object;
    EXPECT_EQ(0x3ffffu, p_o->getModified());
    p_o->registerInterest("x");
    p_o->setPath(pathOf({Vector(1, 1), Vector(9, 1)}));
    p_o->setFollowPath(true);
    p_o->setModified(0);
    c.act(*p_o);
    EXPECT_EQ(c.bits, p_o->getModified()) << c.setter;
  }
  EXPECT_TRUE(logHas(logMessages(), "Object::setSprite(): Warning! Sprite 'nothing' not found"));
}

TEST_F(ObjectTest, AccelerationAddsAfterEachMove) {
  auto* p_o = new Object;
  p_o->setAcceleration(Vector(0, 0.5f));
  WorldManager::getInstance().update();
  WorldManager::getInstance().update();
  EXPECT_EQ(Vector(1, 1.5f), p_o->getPosition());
  p_o->setDirection(Vector(2, 0));  // stored as given, not normalised
  EXPECT_EQ(Vector(3, 1.5f), p_o->predictPosition());
  p_o->setVelocity(Vector(3, 4));
  EXPECT_EQ(Vector(0.6f, 0.8f), p_o->getDirection());
}

TEST_F(ObjectTest, InterestsAreStoredAsOftenAsRegistered) {
  auto* p_o = new SpyObject;
  EXPECT_EQ(-1, p_o->registerInterest(OUT_EVENT));
  // Removal sends the network's object labels to the world, which can't remove them.
  ASSERT_EQ(0, p_o->registerInterest(NETWORK_SYNC_EVENT));
  EXPECT_EQ(-1, p_o->unregisterInterest(NETWORK_SYNC_EVENT));
  NetworkManager::getInstance().unregisterInterest(p_o, NETWORK_SYNC_EVENT);  // or it outlives p_o
  for (int i = 0; i < 97; i++) ASSERT_EQ(0, p_o->registerInterest("l" + std::to_string(i)));
  EXPECT_EQ(0, p_o->registerInterest(STEP_EVENT));
  EXPECT_EQ(0, p_o->registerInterest(STEP_EVENT));
  EXPECT_EQ(-1, p_o->registerInterest("z"));
  runFrames(1);
  EXPECT_EQ(1, p_o->count(STEP_EVENT));
  auto log = logMessages();
  EXPECT_TRUE(
      logHas(log, "Object::registerInterest(): maximum (100) reached, cannot register for event 'z'"));
  EXPECT_TRUE(
      logHas(log, "Manager(WorldManager)::registerInterest(): Event 'ot-out' not valid for this Manager"));
}

TEST_F(ObjectTest, FollowerSnapsToNodesWithinThreeQuartersOfAStep) {
  auto* p_o = new Object;
  p_o->setSpeed(1);
  p_o->setPath(pathOf({Vector(1.5f, 1), Vector(2, 1), Vector(2, 4)}));
  p_o->setFollowPath(true);
  p_o->followPath();
  EXPECT_EQ(Vector(2, 1), p_o->getPosition());
  EXPECT_EQ(Vector(0, 1), p_o->getDirection());
  for (int i = 0; i < 3; i++) WorldManager::getInstance().update();
  EXPECT_EQ(Vector(2, 4), p_o->getPosition());
  EXPECT_FALSE(p_o->getFollowPath());
  EXPECT_EQ(Vector(0, 0), p_o->getDirection());
  EXPECT_FLOAT_EQ(1.0f, p_o->getSpeed());
}

TEST_F(ObjectTest, TextKeepsItsSlips) {
  auto* p_o = new Object;
  p_o->setType("Thing");
  Shape shape;
  shape.setSize(2);
  p_o->setShape(shape);
  EXPECT_EQ(std::to_string(p_o->getId()) +
                ", Thing, (1,1), active true, visible true, [(-0.5,-0.5) h: 0.99 v: 0.99], dir (0,0), "
                "speed 0, accel (0,0), alt 2, hard, [ani sprite , frame_idx 0, slowdown_count 0, transform "
                "NONE], false, no soft 0, [shape circle, size 2.000000, White, 255], [path , follow false, "
                "avoidfalse]",
            p_o->toString());
}
