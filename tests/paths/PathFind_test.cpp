#include "engine/paths/PathFind.h"

#include <gtest/gtest.h>

#include "engine/core/EventPath.h"
#include "engine/paths/PathManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/FakeClock.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using ot::PathFind;
using ot::Vector;
using ot_test::SpyObject;

namespace {

class Finding : public ot_test::HeadlessEngine {
 protected:
  static SpyObject* wallAt(float x, float y) {
    auto* p_wall = new SpyObject("Wall");
    p_wall->setPosition(Vector(x, y));
    return p_wall;
  }
  static SpyObject* walker() {
    auto* p_o = new SpyObject("Walker");
    p_o->setSolidness(ot::SOFT);
    return p_o;
  }
  // Cycles until the search ends, at most n times; the last status.
  static int run(PathFind& find, int n = 5000) {
    int status = ot::PATH_SEARCHING;
    for (int i = 0; i < n && status == ot::PATH_SEARCHING; i++) status = find.cycleOnce();
    return status;
  }
};

}  // namespace

TEST_F(Finding, StartOnTheEndIsFoundAtOnce) {
  SpyObject* p_o = walker();
  PathFind find(p_o, Vector(5, 5), Vector(5.2f, 4.9f));
  EXPECT_EQ(ot::PATH_FOUND, find.cycleOnce());
  ASSERT_EQ(1, find.getPath().size());
  EXPECT_EQ(Vector(5, 5), find.getPath().getCurrent());
}

TEST_F(Finding, WalksAroundAWallInWholeCells) {
  SpyObject* p_o = walker();
  for (int y = 2; y <= 8; y++) wallAt(10, static_cast<float>(y));
  PathFind find(p_o, Vector(5, 5), Vector(15, 5));
  ASSERT_EQ(ot::PATH_FOUND, run(find));
  std::vector<Vector> points = find.getPath().getPoints();
  EXPECT_EQ(Vector(5, 5), points.front());
  EXPECT_EQ(Vector(15, 5), points.back());
  for (const Vector& p : points) {
    EXPECT_FALSE(p.getX() == 10 && p.getY() >= 2 && p.getY() <= 8) << p.toString();
    EXPECT_EQ(static_cast<int>(p.getX()), p.getX());
  }
}

TEST_F(Finding, WalledInGoalFailsWhenNothingIsLeftOpen) {
  SpyObject* p_o = walker();
  for (int x = 18; x <= 22; x++) {
    wallAt(static_cast<float>(x), 8);
    wallAt(static_cast<float>(x), 12);
  }
  for (int y = 9; y <= 11; y++) {
    wallAt(18, static_cast<float>(y));
    wallAt(22, static_cast<float>(y));
  }
  ot::WorldManager::getInstance().setBoundary(ot::Box(Vector(0, 0), 30, 20));
  // The boundary change dropped the walls from the grid; put them back.
  ot::ObjectList walls = ot::WorldManager::getInstance().getSceneGraph().solidObjects();
  for (int i = 0; i < walls.getCount(); i++)
    ot::WorldManager::getInstance().getSceneGraph().getGrid()->insertObject(walls[i]);
  PathFind find(p_o, Vector(2, 2), Vector(20, 10));
  EXPECT_EQ(ot::PATH_FAILED, run(find, 100000));
  EXPECT_EQ(0, find.getPath().size());
}

TEST_F(Finding, DiagonalNeedsOneFreeFlank) {
  SpyObject* p_o = walker();
  wallAt(6, 5);
  PathFind one_flank(p_o, Vector(5, 5), Vector(6, 6));
  ASSERT_EQ(ot::PATH_FOUND, run(one_flank));
  EXPECT_EQ(2, one_flank.getPath().size()) << "cuts the corner in one step";
  wallAt(5, 6);
  PathFind two_flanks(p_o, Vector(5, 5), Vector(6, 6));
  ASSERT_EQ(ot::PATH_FOUND, run(two_flanks));
  EXPECT_GT(two_flanks.getPath().size(), 2);
}

TEST_F(Finding, OutsideTheBoundaryFailsAtTheFirstCycle) {
  SpyObject* p_o = walker();
  PathFind find(p_o, Vector(5, 5), Vector(500, 5));
  EXPECT_EQ(ot::PATH_FAILED, find.cycleOnce());
  auto log = logMessages();
  EXPECT_TRUE(ot_test::logHas(log,
                              "PathFind::PathFind(): Error! Both start (5.00, 5.00) and end (500.00, 5.00) "
                              "must be within world boundary (80, 24)."));
  EXPECT_TRUE(ot_test::logHas(log, "PathFind::cycleOnce(): node graph not allocated.  Cannot find path."));
}

TEST_F(Finding, TargetObjectEndsTheSearchWhenTheBoxesTouch) {
  SpyObject* p_o = walker();
  SpyObject* p_target = wallAt(20, 5);
  p_target->setBox(ot::Box(Vector(-1.6f, -1.6f), 3.2f, 3.2f));  // reaches x 18.4
  p_o->setPosition(Vector(5, 5));
  p_o->pathTo(p_target);
  ASSERT_NE(nullptr, p_o->getPathFind());
  EXPECT_EQ(p_target, p_o->getPathFind()->getTarget());
  ASSERT_EQ(ot::PATH_FOUND, run(*p_o->getPathFind()));
  EXPECT_EQ(Vector(18, 5), p_o->getPathFind()->getPath().getLast());
}

TEST_F(Finding, ManagerCyclesFindsAndTellsTheirObjects) {
  SpyObject* p_o = walker();
  p_o->setPosition(Vector(5, 5));
  p_o->pathTo(Vector(12, 5));
  EXPECT_EQ(-1, ot::PathManager::getInstance().addFind(p_o->getPathFind())) << "a find is added once";
  EXPECT_EQ(-1, ot::PathManager::getInstance().addFind(nullptr));
  // The frozen fake clock never spends the budget, so the cycle runs until the find ends.
  ot_test::FakeClock clock;
  ot::PathManager::getInstance().cycle(0);
  EXPECT_EQ(1, p_o->count(ot::PATH_EVENT));
  EXPECT_TRUE(p_o->getFollowPath());
  EXPECT_EQ(nullptr, p_o->getPathFind());
  EXPECT_EQ(0, ot::PathManager::getInstance().getNumFinds());
  EXPECT_EQ(Vector(12, 5), p_o->getPath().getLast());
}
