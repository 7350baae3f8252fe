#include "engine/world/Grid.h"

#include <functional>
#include <limits>

#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using namespace ot;
using namespace ot_test;
using Cells = std::set<Grid::CellKey>;
using Objects = std::vector<Object*>;

namespace {

// The 80 by 24 world, cut by the default cells of 20 by 8 into 4 by 3.
class GridTest : public HeadlessEngine {
 protected:
  static Grid& grid() { return *WorldManager::getInstance().getSceneGraph().getGrid(); }
  static Object* solidAt(Vector where, Box box = Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f)) {
    auto* p_o = new SpyObject;
    p_o->setBox(box);
    p_o->setPosition(where);
    return p_o;
  }
  static Objects items(const ObjectList& list) {
    Objects objects;
    for (int i = 0; i < list.getCount(); i++) objects.push_back(list[i]);
    return objects;
  }
};

}  // namespace

TEST_F(GridTest, CellsCoverTheFarEdge) {
  Object* p_border = solidAt(Vector(0, 0));
  solidAt(Vector(-9, -9));  // outside too, but far off
  Object* p_o = solidAt(Vector(10, 10), Box(Vector(0, 0), 20, 1));
  EXPECT_EQ((Cells{{0, 0}, {0, 1}}), grid().getCells(p_o, Vector(0, 0)));
  // Ending on the world's far edge counts as reaching out.
  EXPECT_EQ((Cells{Grid::OUT_OF_BOUNDS, {1, 3}}), grid().getCells(p_o, Vector(60, 10)));
  EXPECT_EQ((Cells{Grid::OUT_OF_BOUNDS}), grid().getCells(p_o, Vector(-30, 10)));
  EXPECT_EQ((Cells{Grid::OUT_OF_BOUNDS, {0, 0}}), grid().getCells(p_o, Vector(-0.1f, 0)));
  EXPECT_EQ(Objects{p_border}, items(grid().getCollisions(p_o, Vector(-0.1f, 0))));
}

// A received object may stand anywhere a float can; it must still land in the lists.
TEST_F(GridTest, PositionsPastEveryCellOrNotANumberLieOutOfBounds) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  Object* p_o = solidAt(Vector(10, 10), Box(Vector(0, 0), 20, 1));
  for (Vector where : {Vector(nan, 10), Vector(10, nan), Vector(3e30f, 10), Vector(-3e30f, -3e30f)})
    EXPECT_EQ((Cells{Grid::OUT_OF_BOUNDS}), grid().getCells(p_o, where))
        << where.getX() << "," << where.getY();
  p_o->setPosition(Vector(nan, nan));
  EXPECT_EQ(Objects{p_o}, items(grid().getObjects(Grid::OUT_OF_BOUNDS)));
  Object* p_wide = solidAt(Vector(0, 0), Box(Vector(0, 0), 3e38f, 1));
  EXPECT_EQ((Cells{Grid::OUT_OF_BOUNDS, {0, 0}, {0, 1}, {0, 2}, {0, 3}}),
            grid().getCells(p_wide, Vector(0, 0)));
}

TEST_F(GridTest, CollisionsComeOutOfBoundsFirstThenRowByRowThenInOrderOfEntry) {
  Object* p_row1 = solidAt(Vector(5, 12));
  Object* p_col1 = solidAt(Vector(25, 4));
  Object* p_first = solidAt(Vector(5, 4));
  Object* p_outside = solidAt(Vector(-2, 4));
  Object* p_second = solidAt(Vector(6, 5));
  Object* p_mover = solidAt(Vector(0, 0), Box(Vector(-5, -5), 50, 20));
  p_mover->setSolidness(SPECTRAL);  // out of the grid, which the query doesn't need
  EXPECT_EQ((Objects{p_outside, p_first, p_second, p_col1, p_row1}),
            items(grid().getCollisions(p_mover, Vector(0, 0))));
}

TEST_F(GridTest, MovesTouchOnlyTheCellsThatDiffer) {
  Object* p_o = solidAt(Vector(5, 4));
  Object* p_second = solidAt(Vector(6, 4));
  p_o->setPosition(Vector(5.5f, 4));
  EXPECT_EQ((Objects{p_o, p_second}), items(grid().getObjects({0, 0})));
  p_o->setPosition(Vector(-10, 4));  // any key outside the grid is the marker's
  EXPECT_EQ((Objects{p_second, p_o}), items(grid().getObjects({0, 0}) + grid().getObjects({7, 7})));
  p_o->setPosition(Vector(30, 4));
  EXPECT_EQ(Objects{p_o}, items(grid().getObjects(Grid::OUT_OF_BOUNDS) + grid().getObjects({0, 1})));
}

TEST_F(GridTest, BoundaryChangeEmptiesTheGrid) {
  solidAt(Vector(10, 4));
  Object* p_b = solidAt(Vector(10.5f, 4));
  WorldManager::getInstance().setBoundary(Box(Vector(0, 0), 60, 20));
  EXPECT_EQ(3, grid().getNumRows());  // ceil of 2.5
  EXPECT_EQ(0, grid().getCollisions(p_b, p_b->getPosition()).getCount());
  grid().setDimensions(10, 10);
  EXPECT_EQ(1, grid().getCollisions(p_b, p_b->getPosition()).getCount());
  grid().setDimensions(20, 8);  // the grid outlives the test
}

TEST_F(GridTest, DumpListsEveryCell) {
  WorldManager::getInstance().setBoundary(Box(Vector(0, 0), 40, 8));
  Object* p_in = solidAt(Vector(5, 3));
  Object* p_out = solidAt(Vector(-3, 3));
  EXPECT_EQ("GRID\ndimensions: (20,8)\nCell (0,0): count=1\n Spy(" + std::to_string(p_in->getId()) +
                ")\nCell (1,0): count=0\nOut of bounds: count=1\n Spy(" + std::to_string(p_out->getId()) +
                ")",
            grid().toString());
}

TEST_F(GridTest, RevisionChangesWithEverythingACollisionQueryCanSee) {
  Object* p_o = solidAt(Vector(10, 4));
  const std::pair<const char*, std::function<void()>> changes[] = {
      {"new object", [] { solidAt(Vector(30, 4)); }},
      {"move", [p_o] { p_o->setPosition(Vector(10.5f, 4)); }},
      {"box", [p_o] { p_o->setBox(Box(Vector(-1, -1), 2, 2)); }},
      {"hard to soft", [p_o] { p_o->setSolidness(SOFT); }},
      {"inactive", [p_o] { p_o->setActive(false); }},
      {"active", [p_o] { p_o->setActive(true); }},
      {"deleted",
       [p_o] {
         WorldManager::getInstance().markForDelete(p_o);
         WorldManager::getInstance().update();
       }},
      {"new cells", [] { grid().setDimensions(10, 10); }},
      {"boundary", [] { WorldManager::getInstance().setBoundary(Box(Vector(0, 0), 60, 20)); }},
  };
  for (const auto& change : changes) {
    unsigned long before = grid().getRevision();
    change.second();
    EXPECT_NE(before, grid().getRevision()) << change.first;
  }
  grid().setDimensions(20, 8);
}
