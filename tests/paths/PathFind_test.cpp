#include "engine/paths/PathFind.h"

#include <functional>
#include <memory>

#include "engine/paths/PathManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/FailingAllocations.h"
#include "tests/support/FakeClock.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using ot::PathFind;
using ot::Vector;
using ot_test::SpyObject;
using PathFindTest = ot_test::HeadlessEngine;
using Points = std::vector<Vector>;

namespace {

SpyObject* at(float x, float y, ot::Solidness solidness = ot::HARD) {
  auto* p_o = new SpyObject();
  p_o->setSolidness(solidness);
  p_o->setPosition(Vector(x, y));
  return p_o;
}

SpyObject* walker() { return at(0, 0, ot::SOFT); }

// Cycles until the search ends; the last status, and the cycles it took.
std::pair<int, int> run(PathFind& find) {
  int status = ot::PATH_SEARCHING, cycles = 0;
  while (status == ot::PATH_SEARCHING && cycles < 100000) {
    status = find.cycleOnce();
    cycles++;
  }
  return {status, cycles};
}

Points points(PathFind& find, int status = ot::PATH_FOUND) {
  EXPECT_EQ(status, run(find).first);
  return find.getPath().getPoints();
}

}  // namespace

TEST_F(PathFindTest, WalkerKeepsItsPathWhenTheSearchFails) {
  for (int i = 0; i <= 4; i++) {
    at(static_cast<float>(18 + i), 8);
    at(static_cast<float>(18 + i), 12);
    at(18, static_cast<float>(8 + i));
    at(22, static_cast<float>(8 + i));
  }
  SpyObject* p_o = at(2, 2, ot::SOFT);
  ot::Path before;
  before.setPoints({Vector(1, 1), Vector(2, 1)});
  p_o->setPath(before);
  p_o->pathTo(Vector(20, 10));
  ot_test::FakeClock clock;  // frozen, so the budget lasts until the find ends
  ot::PathManager::getInstance().cycle(0);
  EXPECT_EQ(1, p_o->count(ot::PATH_EVENT));
  EXPECT_EQ(before, p_o->getPath());
  EXPECT_FALSE(p_o->getFollowPath());
  EXPECT_EQ(nullptr, p_o->getPathFind());
}

TEST_F(PathFindTest, BlockedStartFallsBackToYForX) {
  struct Row {
    std::vector<Vector> walls;
    Vector first;  // the path's first point, the start cell taken
    bool warned;
  };
  // From (5.6, 8.7): rounded (6, 9); then truncated (5, 8), (6, 8), (5, 9);
  // last the rounded y in x: (9, 9).
  const Row rows[] = {
      {{Vector(6, 9)}, Vector(5, 8), false},
      {{Vector(6, 9), Vector(5, 8)}, Vector(6, 8), false},
      {{Vector(6, 9), Vector(5, 8), Vector(6, 8)}, Vector(5, 9), false},
      {{Vector(6, 9), Vector(5, 8), Vector(6, 8), Vector(5, 9)}, Vector(9, 9), false},
      {{Vector(6, 9), Vector(5, 8), Vector(6, 8), Vector(5, 9), Vector(9, 9)}, Vector(9, 9), true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.first.toString());
    std::vector<SpyObject*> walls;
    for (const Vector& wall : row.walls) walls.push_back(at(wall.getX(), wall.getY()));
    newLogMessages();
    PathFind find(walker(), Vector(5.6f, 8.7f), Vector(12, 12));
    EXPECT_EQ(row.first, points(find).front());
    EXPECT_EQ(row.warned,
              ot_test::logHas(newLogMessages(), "PathFind::PathFind(): Warning! Can't get to start node."));
    for (SpyObject* p_wall : walls) p_wall->setSolidness(ot::SPECTRAL);
  }
}

TEST_F(PathFindTest, SetUpFailuresFailTheFirstCycleWithTheirLogLines) {
  struct Row {
    const char* name;
    std::function<PathFind*()> make;
    std::vector<std::string> log;
  };
  const Row rows[] = {
      {"no object",
       [] { return new PathFind(nullptr, Vector(5, 5), Vector(6, 6)); },
       {"PathFind()::PathFind(): Fatal error! Object pointer is NULL."}},
      {"end outside",
       [] { return new PathFind(walker(), Vector(5, 5), Vector(500, 5)); },
       {"PathFind::PathFind(): Error! Both start (5.00, 5.00) and end (500.00, 5.00) must be within world "
        "boundary (80, 24)."}},
      {"start outside",
       [] { return new PathFind(walker(), Vector(-0.5f, 5), Vector(5, 5)); },
       {"PathFind::PathFind(): Error! Both start (-0.50, 5.00) and end (5.00, 5.00) must be within world "
        "boundary (80, 24)."}},
      {"no memory",
       [] {
         ot_test::FailingAllocations fail(1000);  // the nodes of 80 by 24 cells take far more
         return new PathFind(walker(), Vector(5, 5), Vector(6, 6));
       },
       {"PathFind::PathFind(): allocated [y, x]: 24, 80",
        "PathFind::PathFind(): Error!  Unable to allocate pathfinding for 24 rows."}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    newLogMessages();
    std::unique_ptr<PathFind> p_find(row.make());
    EXPECT_EQ(ot::PATH_FAILED, p_find->cycleOnce());
    EXPECT_TRUE(p_find->getPath().getPoints().empty());
    std::vector<std::string> want = row.log;
    want.push_back("PathFind::cycleOnce(): node graph not allocated.  Cannot find path.");
    EXPECT_EQ(want, newLogMessages());
  }
}

TEST_F(PathFindTest, PathToWithoutMemoryForTheFindStartsNothing) {
  SpyObject* p_o = walker();
  {
    ot_test::FailingAllocations fail(sizeof(PathFind));
    p_o->pathTo(Vector(10, 5));
    p_o->pathTo(at(20, 5));
  }
  EXPECT_EQ(nullptr, p_o->getPathFind());
  EXPECT_EQ(0, ot::PathManager::getInstance().getNumFinds());
  std::vector<std::string> log = logMessages();
  EXPECT_EQ(2, ot_test::logCount(log, "Object::pathTo(): Error! Unable to allocate memory for PathFind."));
  EXPECT_EQ("Object::pathTo(): path find not allocated!", log.back());
}

TEST_F(PathFindTest, BoundaryChangedDuringASearchLeavesItOnTheCellsItWasMadeFor) {
  PathFind find(walker(), Vector(5, 5), Vector(70, 20));
  for (int i = 0; i < 3; i++) EXPECT_EQ(ot::PATH_SEARCHING, find.cycleOnce());
  ot::WorldManager::getInstance().setBoundary(ot::Box(Vector(0, 0), 40, 10));
  EXPECT_EQ(Vector(70, 20), points(find).back());
  ot::WorldManager::getInstance().setBoundary(ot::Box(Vector(0, 0), 200, 100));
  EXPECT_EQ(ot::PATH_FOUND, find.cycleOnce());
}

TEST_F(PathFindTest, FindToAnObjectEndsWhereTheBoxesTouch) {
  SpyObject* p_o = at(5, 5, ot::SOFT);
  SpyObject* p_target = at(20, 5);
  p_target->setBox(ot::Box(Vector(-1.6f, -1.6f), 3.2f, 3.2f));  // reaches x 18.4
  p_o->pathTo(p_target);
  EXPECT_EQ(p_target, p_o->getPathFind()->getTarget());
  EXPECT_EQ(-1, ot::PathManager::getInstance().addFind(p_o->getPathFind()));  // a find is added once
  ot_test::FakeClock clock;  // frozen, so the budget lasts until the find ends
  ot::PathManager::getInstance().cycle(0);
  EXPECT_EQ(std::make_tuple(1, true, static_cast<PathFind*>(nullptr), 0, Vector(18, 5)),
            std::make_tuple(p_o->count(ot::PATH_EVENT), p_o->getFollowPath(), p_o->getPathFind(),
                            ot::PathManager::getInstance().getNumFinds(), p_o->getPath().getLast()));
}
