#include "engine/world/Object.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/core/EventPath.h"
#include "engine/network/NetworkManager.h"
#include "engine/paths/PathFind.h"
#include "engine/paths/PathManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using ot::Object;
using ot::Vector;
using ot_test::logHas;
using ot_test::SpyObject;

namespace {

class Objects : public ot_test::HeadlessEngine {};

}  // namespace

TEST_F(Objects, IdsRiseAndEverythingStartsModified) {
  auto* p_a = new Object;
  auto* p_b = new Object;
  EXPECT_EQ(p_a->getId() + 1, p_b->getId());
  EXPECT_EQ(0x3ffffu, p_a->getModified());
  EXPECT_EQ(-1, p_a->getShape().getType());
}

TEST_F(Objects, SettersMarkTheirBitsWithKeptGaps) {
  auto* p_o = new Object;
  p_o->setModified(0);
  p_o->setDirection(Vector(1, 0));
  EXPECT_FALSE(p_o->isModified()) << "setDirection sets no bit";
  p_o->setPosition(Vector(1, 1));
  EXPECT_FALSE(p_o->isModified()) << "an equal value changes nothing";
  p_o->setType("(Undefined)");
  EXPECT_EQ(Object::TYPE, p_o->getModified()) << "setType always proceeds";
  p_o->setModified(0);
  p_o->setVelocity(Vector(3, 4));
  EXPECT_EQ(Object::SPEED | Object::DIRECTION, p_o->getModified());
  p_o->setModified(0);
  p_o->setAltitude(3);
  p_o->setPosition(Vector(2, 2));
  p_o->setNoSoft(true);
  p_o->setAcceleration(Vector(0, 0.1f));
  EXPECT_EQ(Object::ALTITUDE | Object::POSITION | Object::NO_SOFT | Object::ACCELERATION, p_o->getModified());
  EXPECT_TRUE(p_o->isModified(Object::NO_SOFT | Object::SHAPE));
  EXPECT_FALSE(p_o->isModified(Object::SHAPE));
  p_o->setModified(0);
  EXPECT_EQ(-1, p_o->setAltitude(9));
  EXPECT_FALSE(p_o->isModified()) << "a refused value sets no bit";
}

TEST_F(Objects, VelocitySplitsIntoSpeedAndDirection) {
  auto* p_o = new Object;
  p_o->setVelocity(Vector(3, 4));
  EXPECT_FLOAT_EQ(5.0f, p_o->getSpeed());
  EXPECT_FLOAT_EQ(0.6f, p_o->getDirection().getX());
  EXPECT_FLOAT_EQ(0.8f, p_o->getDirection().getY());
  p_o->setVelocity(Vector(0, 0));
  EXPECT_EQ(0.0f, p_o->getSpeed());
  EXPECT_EQ(Vector(0, 0), p_o->getDirection());
  // A direction isn't normalised: two cells a step at speed 1.
  p_o->setSpeed(1);
  p_o->setDirection(Vector(2, 0));
  EXPECT_EQ(Vector(3, 1), p_o->predictPosition());
}

TEST_F(Objects, AccelerationAddsToTheVelocityEachStep) {
  auto* p_o = new Object;
  p_o->setSolidness(ot::SPECTRAL);
  p_o->setAcceleration(Vector(0, 0.5f));
  ot::WorldManager::getInstance().update();
  EXPECT_FLOAT_EQ(0.5f, p_o->getSpeed());
  ot::WorldManager::getInstance().update();
  EXPECT_FLOAT_EQ(1.5f, p_o->getPosition().getY()) << "moved by the first step's velocity";
  EXPECT_FLOAT_EQ(1.0f, p_o->getSpeed());
}

TEST_F(Objects, UnknownSpriteChangesNothing) {
  auto* p_o = new Object;
  p_o->setModified(0);
  EXPECT_EQ(-1, p_o->setSprite("no-such-sprite"));
  EXPECT_FALSE(p_o->isModified());
  EXPECT_EQ(nullptr, p_o->getAnimation().getSprite());
  EXPECT_TRUE(logHas(logMessages(), "Object::setSprite(): Warning! Sprite 'no-such-sprite' not found"));
}

TEST_F(Objects, InterestsAreLimitedAndTheirManagerChosenByLabel) {
  auto* p_o = new SpyObject;
  for (int i = 0; i < 100; i++) ASSERT_EQ(0, p_o->registerInterest("label" + std::to_string(i)));
  EXPECT_EQ(-1, p_o->registerInterest(ot::STEP_EVENT));
  EXPECT_TRUE(
      logHas(logMessages(),
             "Object::registerInterest(): maximum (100) reached, cannot register for event 'ot-step'"));
  for (int i = 0; i < 100; i++) ASSERT_EQ(0, p_o->unregisterInterest("label" + std::to_string(i)));
  EXPECT_EQ(0, p_o->getEventCount());

  EXPECT_EQ(-1, p_o->registerInterest(ot::COLLISION_EVENT));
  EXPECT_EQ(-1, p_o->registerInterest(ot::OUT_EVENT));
  auto log = logMessages();
  EXPECT_TRUE(logHas(log, "WorldManager::isValid(): Event ot-collision handled automatically."));
  EXPECT_TRUE(
      logHas(log, "Manager(WorldManager)::registerInterest(): Event 'ot-out' not valid for this Manager"));
  EXPECT_EQ(-1, p_o->unregisterInterest("never"));
  EXPECT_TRUE(logHas(logMessages(), "Object::unregisterInterest(): event 'never' not previously registered"));
}

TEST_F(Objects, RepeatedRegistrationIsStoredTwiceButDeliveredOnce) {
  auto* p_o = new SpyObject;
  p_o->registerInterest(ot::STEP_EVENT);
  p_o->registerInterest(ot::STEP_EVENT);
  EXPECT_EQ(2, p_o->getEventCount());
  ot_test::runFrames(1);
  EXPECT_EQ(1, p_o->count(ot::STEP_EVENT));
}

TEST_F(Objects, NetworkObjectLabelsCannotBeUnregistered) {
  auto* p_o = new SpyObject;
  ASSERT_EQ(0, p_o->registerInterest(ot::NETWORK_SYNC_EVENT));
  EXPECT_EQ(-1, p_o->unregisterInterest(ot::NETWORK_SYNC_EVENT));
  EXPECT_EQ(1, p_o->getEventCount());
  ASSERT_EQ(0, p_o->registerInterest(ot::CUSTOM_NETWORK_EVENT));
  EXPECT_EQ(0, p_o->unregisterInterest(ot::CUSTOM_NETWORK_EVENT));
  // The stale row stays in the network manager; take it out by hand.
  ot::NetworkManager::getInstance().unregisterInterest(p_o, ot::NETWORK_SYNC_EVENT);
}

TEST_F(Objects, ComparisonSkipsTheModifiedMask) {
  auto* p_a = new Object;
  auto* p_b = new Object;
  EXPECT_FALSE(*p_a == *p_b) << "ids differ";
  p_b->setId(p_a->getId());
  p_b->setModified(0);
  EXPECT_TRUE(*p_a == *p_b);
  p_b->setSpeed(NAN);
  p_a->setSpeed(NAN);
  EXPECT_FALSE(*p_a == *p_b) << "NaN speeds are unequal";
}

TEST_F(Objects, TextKeepsItsSlips) {
  auto* p_o = new Object;
  p_o->setType("Rock");
  std::string id = std::to_string(p_o->getId());
  EXPECT_EQ(
      id +
          ", Rock, (1,1), active true, visible true, [(-0.5,-0.5) h: 0.99 v: 0.99], dir (0,0), "
          "speed 0, accel (0,0), alt 2, hard, [ani sprite , frame_idx 0, slowdown_count 0, transform NONE], "
          "false, no soft 0, [shape " +
          p_o->getShape().toString() + "], [path , follow false, avoidfalse]",
      p_o->toString());
}

TEST_F(Objects, FollowingSnapsToNodesWithinThreeQuartersOfAStep) {
  auto* p_o = new Object;
  p_o->setSolidness(ot::SPECTRAL);
  p_o->setPosition(Vector(1, 1));
  p_o->setSpeed(1);
  ot::Path path;
  path.setPoints({Vector(1.5f, 1), Vector(2, 1), Vector(6, 1)});
  p_o->setPath(path);
  p_o->setFollowPath(true);
  EXPECT_EQ(Vector(1, 0), p_o->getDirection());
  p_o->followPath();
  // Both near nodes are passed in one step; it now points at the far one.
  EXPECT_EQ(Vector(2, 1), p_o->getPosition());
  EXPECT_EQ(2, p_o->getPath().getIndex());
  EXPECT_EQ(Vector(1, 0), p_o->getDirection());
  for (int i = 0; i < 10; i++) ot::WorldManager::getInstance().update();
  EXPECT_EQ(Vector(6, 1), p_o->getPosition());
  EXPECT_FALSE(p_o->getFollowPath());
  EXPECT_EQ(Vector(0, 0), p_o->getDirection());
  EXPECT_FLOAT_EQ(1.0f, p_o->getSpeed()) << "the speed is left as it was";
}

TEST_F(Objects, ZeroSpeedFollowerSnapsOnlyOnAnExactHit) {
  auto* p_o = new Object;
  ot::Path path;
  path.setPoints({Vector(4, 1)});
  p_o->setPath(path);
  p_o->setFollowPath(true);
  p_o->followPath();
  EXPECT_EQ(Vector(1, 1), p_o->getPosition());
  EXPECT_EQ(Vector(1, 0), p_o->getDirection());
}

TEST_F(Objects, FoundPathArrivesByEventAndTheSearchIsDropped) {
  auto* p_o = new Object;
  p_o->setSolidness(ot::SPECTRAL);
  p_o->pathTo(Vector(5, 1));
  ASSERT_NE(nullptr, p_o->getPathFind());
  EXPECT_TRUE(p_o->getAvoidCollisions());
  EXPECT_EQ(1, ot::PathManager::getInstance().getNumFinds());
  ot::Path path;
  path.setPoints({Vector(1, 1), Vector(5, 1)});
  ot::EventPath found(path);
  found.setStatus(ot::PATH_FOUND);
  EXPECT_EQ(1, p_o->eventHandler(&found));
  EXPECT_EQ(nullptr, p_o->getPathFind());
  EXPECT_EQ(0, ot::PathManager::getInstance().getNumFinds());
  EXPECT_TRUE(p_o->getFollowPath());
  EXPECT_EQ(path, p_o->getPath());

  ot::Event other;
  other.setType("ot-something");
  EXPECT_EQ(0, p_o->eventHandler(&other));
  ot::Event fake_path;
  fake_path.setType(ot::PATH_EVENT);
  EXPECT_EQ(0, p_o->eventHandler(&fake_path));
  EXPECT_TRUE(logHas(logMessages(), "Object::eventHandler(): Error! Dynamic cast to EventPath failed."));
}
