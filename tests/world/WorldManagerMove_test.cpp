// WorldManager::moveObject: outcomes by solidness, sliding, leaving the world
// and the view that follows.

#include <gtest/gtest.h>

#include "engine/core/EventCollision.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using ot::Box;
using ot::Solidness;
using ot::Vector;
using ot_test::SpyObject;

namespace {

class Moving : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 5; }
  static ot::WorldManager& world() { return ot::WorldManager::getInstance(); }
  static SpyObject* spyAt(Vector where, Solidness solidness, std::string type = "Spy") {
    auto* p_o = new SpyObject(std::move(type));
    p_o->setSolidness(solidness);
    p_o->setPosition(where);
    return p_o;
  }
};

struct Outcome {
  Solidness mover;
  bool no_soft;
  Solidness other;
  bool event;
  bool moved;
};

class MoveOutcomes : public Moving, public ::testing::WithParamInterface<Outcome> {};

std::string describe(const Outcome& o) {
  static const char* const kinds[] = {"Hard", "Soft", "Spectral"};
  return std::string(kinds[o.mover]) + (o.no_soft ? "NoSoft" : "") + "Onto" + kinds[o.other];
}

std::string outcomeName(const ::testing::TestParamInfo<Outcome>& param_info) {
  return describe(param_info.param);
}

void PrintTo(const Outcome& o, std::ostream* p_out) { *p_out << describe(o); }

}  // namespace

TEST_P(MoveOutcomes, FollowTheTableOfKinds) {
  const Outcome& o = GetParam();
  SpyObject* p_mover = spyAt(Vector(10, 10), o.mover, "Mover");
  p_mover->setNoSoft(o.no_soft);
  SpyObject* p_other = spyAt(Vector(11, 10), o.other, "Other");
  int result = world().moveObject(p_mover, Vector(11, 10));
  EXPECT_EQ(o.moved ? 0 : -1, result);
  EXPECT_EQ(o.moved ? Vector(11, 10) : Vector(10, 10), p_mover->getPosition());
  EXPECT_EQ(o.event ? 1 : 0, p_mover->count(ot::COLLISION_EVENT));
  EXPECT_EQ(o.event ? 1 : 0, p_other->count(ot::COLLISION_EVENT));
}

INSTANTIATE_TEST_SUITE_P(
    Table, MoveOutcomes,
    ::testing::Values(
        Outcome{ot::HARD, false, ot::HARD, true, false}, Outcome{ot::HARD, false, ot::SOFT, true, true},
        Outcome{ot::HARD, false, ot::SPECTRAL, false, true}, Outcome{ot::HARD, true, ot::HARD, true, false},
        Outcome{ot::HARD, true, ot::SOFT, true, false}, Outcome{ot::HARD, true, ot::SPECTRAL, false, true},
        Outcome{ot::SOFT, false, ot::HARD, true, true}, Outcome{ot::SOFT, false, ot::SOFT, true, true},
        Outcome{ot::SOFT, false, ot::SPECTRAL, false, true}, Outcome{ot::SOFT, true, ot::HARD, true, true},
        Outcome{ot::SOFT, true, ot::SOFT, true, false}, Outcome{ot::SOFT, true, ot::SPECTRAL, false, true},
        Outcome{ot::SPECTRAL, false, ot::HARD, false, true},
        Outcome{ot::SPECTRAL, false, ot::SOFT, false, true},
        Outcome{ot::SPECTRAL, true, ot::SOFT, false, true}),
    outcomeName);

TEST_F(Moving, MoverHearsFirstAndEveryColliderHearsEvenAfterABlock) {
  SpyObject* p_mover = spyAt(Vector(10, 10), ot::HARD, "Mover");
  SpyObject* p_wall = spyAt(Vector(11, 10), ot::HARD, "Wall");
  SpyObject* p_soft = spyAt(Vector(11, 10), ot::SOFT, "Soft");
  std::vector<std::string> order;
  auto note = [&order](SpyObject& self, const ot::Event* p_e) {
    auto* p_c = static_cast<const ot::EventCollision*>(p_e);
    order.push_back(self.getType() + "<" + p_c->getObject2()->getType());
    EXPECT_EQ(Vector(11, 10), p_c->getPosition());
  };
  p_mover->on_event = p_wall->on_event = p_soft->on_event = note;
  EXPECT_EQ(-1, world().moveObject(p_mover, Vector(11, 10)));
  EXPECT_EQ((std::vector<std::string>{"Mover<Wall", "Wall<Wall", "Mover<Soft", "Soft<Soft"}), order);
}

TEST_F(Moving, HandlerThatMovesTheMoverWins) {
  SpyObject* p_mover = spyAt(Vector(10, 10), ot::SOFT, "Mover");
  SpyObject* p_other = spyAt(Vector(11, 10), ot::SOFT, "Other");
  p_mover->on_event = [](SpyObject& self, const ot::Event*) { self.setPosition(Vector(3, 3)); };
  EXPECT_EQ(-1, world().moveObject(p_mover, Vector(11, 10)));
  EXPECT_EQ(Vector(3, 3), p_mover->getPosition());
  EXPECT_EQ(1, p_other->count(ot::COLLISION_EVENT));
}

TEST_F(Moving, NoSoftIsReadForEachCollider) {
  SpyObject* p_mover = spyAt(Vector(10, 10), ot::SOFT, "Mover");
  spyAt(Vector(11, 10), ot::SOFT, "First");
  spyAt(Vector(11, 10), ot::SOFT, "Second");
  // Turned on while hearing of the second collider, it blocks that one.
  p_mover->on_event = [](SpyObject& self, const ot::Event*) {
    if (self.count(ot::COLLISION_EVENT) == 2) self.setNoSoft(true);
  };
  EXPECT_EQ(-1, world().moveObject(p_mover, Vector(11, 10)));
  EXPECT_EQ(Vector(10, 10), p_mover->getPosition());
}

TEST_F(Moving, SlidesAlongAWallAtFullSpeed) {
  for (int x = 5; x <= 15; x++) spyAt(Vector(static_cast<float>(x), 12), ot::HARD, "Wall");
  SpyObject* p_mover = spyAt(Vector(10, 11), ot::HARD, "Mover");
  p_mover->setAvoidCollisions(true);
  p_mover->setVelocity(Vector(0.6f, 0.8f));
  EXPECT_EQ(0, world().moveObject(p_mover, p_mover->predictPosition()));
  EXPECT_FLOAT_EQ(11.0f, p_mover->getPosition().getX());
  EXPECT_FLOAT_EQ(11.0f, p_mover->getPosition().getY());
  EXPECT_EQ(0, p_mover->count(ot::COLLISION_EVENT)) << "the wall slid along hears nothing";
}

TEST_F(Moving, CornerStopsASlidingMoverSilently) {
  for (int x = 5; x <= 15; x++) spyAt(Vector(static_cast<float>(x), 12), ot::HARD, "Wall");
  for (int y = 5; y <= 12; y++) spyAt(Vector(12, static_cast<float>(y)), ot::HARD, "Wall");
  SpyObject* p_mover = spyAt(Vector(11, 11), ot::HARD, "Mover");
  p_mover->setAvoidCollisions(true);
  p_mover->setVelocity(Vector(0.6f, 0.8f));
  EXPECT_EQ(-1, world().moveObject(p_mover, p_mover->predictPosition()));
  EXPECT_EQ(Vector(11, 11), p_mover->getPosition());
  EXPECT_EQ(0, p_mover->count(ot::COLLISION_EVENT));
  EXPECT_TRUE(ot_test::logHas(
      logMessages(), "WorldManager::moveObject(): Double collision. Object (avoid obstacles) cannot move."));
}

TEST_F(Moving, SlidingIgnoresSoftObstacles) {
  SpyObject* p_mover = spyAt(Vector(10, 10), ot::HARD, "Mover");
  p_mover->setAvoidCollisions(true);
  p_mover->setVelocity(Vector(1, 0));
  SpyObject* p_soft = spyAt(Vector(11, 10), ot::SOFT, "Soft");
  EXPECT_EQ(0, world().moveObject(p_mover, Vector(11, 10)));
  EXPECT_EQ(1, p_soft->count(ot::COLLISION_EVENT));
}

TEST_F(Moving, LeavingTheWorldIsToldOnce) {
  SpyObject* p_o = spyAt(Vector(79, 10), ot::SPECTRAL);
  EXPECT_EQ(0, world().moveObject(p_o, Vector(81, 10)));
  EXPECT_EQ(0, world().moveObject(p_o, Vector(85, 10)));
  EXPECT_EQ(0, world().moveObject(p_o, Vector(70, 10)));
  EXPECT_EQ(1, p_o->count(ot::OUT_EVENT));
}

TEST_F(Moving, ViewFollowsWithSlackAndStaysInsideTheBoundary) {
  world().setBoundary(Box(Vector(0, 0), 200, 100));
  world().setView(Box(Vector(0, 0), 80, 24));
  world().setViewSlack(Vector(0.5f, 0.5f));
  SpyObject* p_o = spyAt(Vector(40, 12), ot::SPECTRAL);
  ASSERT_EQ(0, world().setViewFollowing(p_o));
  EXPECT_EQ(Vector(0, 0), world().getView().getCorner());
  // Inside the middle half nothing moves.
  world().moveObject(p_o, Vector(55, 12));
  EXPECT_EQ(Vector(0, 0), world().getView().getCorner());
  // Past the slack edge (x 60) the view is dragged by the difference.
  world().moveObject(p_o, Vector(65, 12));
  EXPECT_EQ(Vector(5, 0), world().getView().getCorner());
  // Never beyond the boundary.
  world().moveObject(p_o, Vector(199, 99));
  EXPECT_EQ(Vector(120, 76), world().getView().getCorner());
  // An object not followed doesn't move the view.
  SpyObject* p_other = spyAt(Vector(1, 1), ot::SPECTRAL);
  world().moveObject(p_other, Vector(2, 2));
  EXPECT_EQ(Vector(120, 76), world().getView().getCorner());
}

TEST_F(Moving, ZeroSlackCentresTheViewOnEveryStep) {
  world().setBoundary(Box(Vector(0, 0), 200, 100));
  world().setView(Box(Vector(0, 0), 80, 24));
  world().setViewSlack(Vector(0, 0));
  SpyObject* p_o = spyAt(Vector(40, 12), ot::SPECTRAL);
  world().setViewFollowing(p_o);
  world().moveObject(p_o, Vector(100, 50));
  EXPECT_EQ(Vector(60, 38), world().getView().getCorner());
}
