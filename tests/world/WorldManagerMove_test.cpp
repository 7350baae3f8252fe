#include "engine/core/EventCollision.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using namespace ot;
using namespace ot_test;

namespace {

class WorldManagerMove : public HeadlessEngine {
 protected:
  int logLevel() const override { return 5; }
  static WorldManager& world() { return WorldManager::getInstance(); }
  static SpyObject* spyAt(Vector where, Solidness solidness, std::string type = "Spy") {
    auto* p_o = new SpyObject(std::move(type));
    p_o->setSolidness(solidness);
    p_o->setPosition(where);
    return p_o;
  }
  static SpyObject* sliderAt(Vector where, Vector velocity) {
    SpyObject* p_o = spyAt(where, HARD, "Mover");
    p_o->setAvoidCollisions(true);
    p_o->setVelocity(velocity);
    return p_o;
  }
};

class WorldManagerMoveOutcome : public WorldManagerMove, public ::testing::WithParamInterface<std::string> {};

Solidness kind(char c) { return c == 'H' ? HARD : c == 'S' ? SOFT : SPECTRAL; }

}  // namespace

// Rows: mover, N if it has no-soft, other; then e if both hear of it, m if the mover moves.
TEST_P(WorldManagerMoveOutcome, FollowTheTableOfKinds) {
  const std::string row = GetParam();
  SpyObject* p_mover = spyAt(Vector(10, 10), kind(row[0]));
  p_mover->setNoSoft(row[1] == 'N');
  SpyObject* p_other = spyAt(Vector(11, 10), kind(row[2]));
  EXPECT_EQ(row[4] == 'm' ? 0 : -1, world().moveObject(p_mover, Vector(11, 10)));
  EXPECT_EQ(row[4] == 'm' ? Vector(11, 10) : Vector(10, 10), p_mover->getPosition());
  EXPECT_EQ(row[3] == 'e' ? 1 : 0, p_mover->count(COLLISION_EVENT));
  EXPECT_EQ(row[3] == 'e' ? 1 : 0, p_other->count(COLLISION_EVENT));
}

INSTANTIATE_TEST_SUITE_P(Table, WorldManagerMoveOutcome,
                         ::testing::Values("H-He-", "H-Sem", "H-X-m", "HNHe-", "HNSe-", "HNX-m", "S-Hem",
                                           "S-Sem", "S-X-m", "SNHem", "SNSe-", "SNX-m", "X-H-m", "X-S-m",
                                           "X-X-m", "XNS-m"));

TEST_F(WorldManagerMove, MoverHearsFirst) {
  SpyObject* p_mover = spyAt(Vector(10, 10), HARD, "Mover");
  SpyObject* p_wall = spyAt(Vector(11, 10), HARD, "Wall");
  SpyObject* p_soft = spyAt(Vector(11, 10), SOFT, "Soft");
  std::vector<std::string> order;
  p_mover->on_event = p_wall->on_event = p_soft->on_event = [&order](SpyObject& self, const Event* p_e) {
    auto* p_c = static_cast<const EventCollision*>(p_e);
    order.push_back(self.getType() + "<" + p_c->getObject2()->getType());
  };
  EXPECT_EQ(-1, world().moveObject(p_mover, Vector(11, 10)));
  EXPECT_EQ((std::vector<std::string>{"Mover<Wall", "Wall<Wall", "Mover<Soft", "Soft<Soft"}), order);
}

TEST_F(WorldManagerMove, HandlerThatMovesTheMoverWins) {
  SpyObject* p_mover = spyAt(Vector(10, 10), SOFT);
  SpyObject* p_other = spyAt(Vector(11, 10), SOFT);
  p_mover->on_event = [](SpyObject& self, const Event*) { self.setPosition(Vector(3, 3)); };
  EXPECT_EQ(-1, world().moveObject(p_mover, Vector(11, 10)));
  EXPECT_EQ(Vector(3, 3), p_mover->getPosition());
  EXPECT_EQ(1, p_other->count(COLLISION_EVENT));
  p_other->setPosition(Vector(4, 3));
  spyAt(Vector(4, 3), SOFT);
  // Set on hearing of the second collider, the flag blocks at that one.
  p_mover->on_event = [](SpyObject& self, const Event*) { self.setNoSoft(self.count(COLLISION_EVENT) == 3); };
  EXPECT_EQ(-1, world().moveObject(p_mover, Vector(4, 3)));
}

TEST_F(WorldManagerMove, SliderAlongAWallGoesAtFullSpeed) {
  for (int x = 5; x <= 15; x++) spyAt(Vector(static_cast<float>(x), 12), HARD);
  SpyObject* p_soft = spyAt(Vector(11.5f, 11), SOFT);
  SpyObject* p_mover = sliderAt(Vector(10, 11), Vector(0.6f, 0.8f));
  EXPECT_EQ(0, world().moveObject(p_mover, p_mover->predictPosition()));
  EXPECT_EQ(Vector(11, 11), p_mover->getPosition());
  EXPECT_EQ(1, p_soft->count(COLLISION_EVENT));
  EXPECT_EQ(1, p_mover->count(COLLISION_EVENT));  // and none with the wall
  // Into the inside corner with a second wall: no way on, and nobody hears.
  for (int y = 5; y <= 11; y++) spyAt(Vector(12, static_cast<float>(y)), HARD);
  EXPECT_EQ(-1, world().moveObject(p_mover, p_mover->predictPosition()));
  EXPECT_EQ(1, p_mover->count(COLLISION_EVENT));
  EXPECT_TRUE(logHas(logMessages(),
                     "WorldManager::moveObject(): Double collision. Object (avoid obstacles) cannot move."));
}

TEST_F(WorldManagerMove, SliderOffAnOuterCornerTurnsItsSidewaysPart) {
  SpyObject* p_block = spyAt(Vector(11, 11), HARD);
  SpyObject* p_mover = sliderAt(Vector(10, 10), Vector(0.6f, 0.8f));
  EXPECT_EQ(0, world().moveObject(p_mover, p_mover->predictPosition()));
  EXPECT_NEAR(9.4f, p_mover->getPosition().getX(), 1e-5);
  EXPECT_NEAR(10.8f, p_mover->getPosition().getY(), 1e-5);
  p_mover->setVelocity(Vector(0, 0));
  p_mover->setPosition(Vector(10, 11));
  EXPECT_EQ(0, world().moveObject(p_mover, Vector(11, 11)));
  EXPECT_EQ(Vector(10, 11), p_mover->getPosition());
  EXPECT_EQ(0, p_block->count(COLLISION_EVENT));
}

TEST_F(WorldManagerMove, ViewFollowsPastItsSlack) {
  world().setBoundary(Box(Vector(0, 0), 200, 100));
  world().setViewSlack(Vector(0.5f, 0.5f));
  SpyObject* p_o = spyAt(Vector(40, 12), SPECTRAL);
  EXPECT_EQ(-1, world().setViewFollowing(reinterpret_cast<Object*>(&world())));  // only compared
  ASSERT_EQ(0, world().setViewFollowing(p_o));
  world().moveObject(p_o, Vector(65, 12));  // 5 past the slack's edge at 60
  EXPECT_EQ(Vector(5, 0), world().getView().getCorner());
  world().moveObject(p_o, Vector(201, 99));
  world().moveObject(p_o, Vector(205, 99));
  EXPECT_EQ(Vector(120, 76), world().getView().getCorner());
  EXPECT_EQ(1, p_o->count(OUT_EVENT));
  world().setView(Box(Vector(0, 0), 300, 20));  // wider than the world
  world().setViewPosition(Vector(199, 50));
  EXPECT_EQ(Vector(0, 40), world().getView().getCorner());
}
