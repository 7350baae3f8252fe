#include "engine/paths/PathFind.h"

#include "engine/paths/PathManager.h"
#include "tests/support/FakeClock.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using ot::Vector;
using Finding = ot_test::HeadlessEngine;

namespace {

ot_test::SpyObject* at(int x, int y, ot::Solidness solidness = ot::HARD) {
  auto* p_o = new ot_test::SpyObject();
  p_o->setSolidness(solidness);
  p_o->setPosition(Vector(static_cast<float>(x), static_cast<float>(y)));
  return p_o;
}

std::vector<Vector> run(Vector end, int status = ot::PATH_FOUND) {
  ot::PathFind find(at(0, 0, ot::SOFT), Vector(5, 5), end);
  int now = ot::PATH_SEARCHING;
  for (int i = 0; i < 100000 && now == ot::PATH_SEARCHING; i++) now = find.cycleOnce();
  EXPECT_EQ(status, now);
  return find.getPath().getPoints();
}

}  // namespace

TEST_F(Finding, WalksAroundAWallAndFailsOutsideTheWorld) {
  EXPECT_EQ(std::vector<Vector>{Vector(5, 5)}, run(Vector(5.2f, 4.9f)));  // found at once
  for (int y = 2; y <= 8; y++) at(10, y);
  for (const Vector& p : run(Vector(15, 5))) EXPECT_FALSE(p.getX() == 10 && p.getY() >= 2 && p.getY() <= 8);
  EXPECT_EQ(Vector(15, 5), run(Vector(15, 5)).back());
  EXPECT_TRUE(run(Vector(500, 5), ot::PATH_FAILED).empty());
  EXPECT_EQ("PathFind::cycleOnce(): node graph not allocated.  Cannot find path.", logMessages().back());
}

TEST_F(Finding, ManagerRunsAFindToAnObjectUntilTheBoxesTouchAndTellsTheWalker) {
  ot_test::SpyObject* p_o = at(5, 5, ot::SOFT);
  ot_test::SpyObject* p_target = at(20, 5);
  p_target->setBox(ot::Box(Vector(-1.6f, -1.6f), 3.2f, 3.2f));  // reaches x 18.4
  p_o->pathTo(p_target);
  EXPECT_EQ(-1, ot::PathManager::getInstance().addFind(p_o->getPathFind()));  // a find is added once
  ot_test::FakeClock clock;  // frozen, so the budget lasts until the find ends
  ot::PathManager::getInstance().cycle(0);
  EXPECT_EQ(std::make_tuple(1, true, static_cast<ot::PathFind*>(nullptr), 0, Vector(18, 5)),
            std::make_tuple(p_o->count(ot::PATH_EVENT), p_o->getFollowPath(), p_o->getPathFind(),
                            ot::PathManager::getInstance().getNumFinds(), p_o->getPath().getLast()));
}
