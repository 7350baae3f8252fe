#include "engine/world/Grid.h"

#include <gtest/gtest.h>

#include "engine/core/Config.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using ot::Box;
using ot::Grid;
using ot::Vector;
using ot_test::SpyObject;
using Cells = std::set<Grid::CellKey>;

namespace {

// A world of 100 by 30 spaces, cut by the default cells of 20 by 8.
class GridCover : public ot_test::HeadlessEngine {
 protected:
  void SetUp() override {
    HeadlessEngine::SetUp();
    world().setBoundary(Box(Vector(0, 0), 100, 30));
  }
  static ot::WorldManager& world() { return ot::WorldManager::getInstance(); }
  static Grid& grid() { return *world().getSceneGraph().getGrid(); }
  static SpyObject* solidAt(Vector where, Box box = Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f)) {
    auto* p_o = new SpyObject;
    p_o->setBox(box);
    p_o->setPosition(where);
    return p_o;
  }
};

}  // namespace

TEST_F(GridCover, DefaultCellsCutTheWorldIntoFiveByFour) {
  EXPECT_EQ(5, grid().getNumCols());
  EXPECT_EQ(4, grid().getNumRows());
  EXPECT_EQ(20, grid().getCellWidth());
  EXPECT_EQ(8, grid().getCellHeight());
}

TEST_F(GridCover, FarEdgeCoversNextCell) {
  SpyObject* p_o = solidAt(Vector(0, 0), Box(Vector(0, 0), 20, 1));
  EXPECT_EQ((Cells{{0, 0}, {0, 1}}), grid().getCells(p_o, Vector(0, 0)));
  SpyObject* p_small = solidAt(Vector(0, 0), Box(Vector(0, 0), 19.9f, 1));
  EXPECT_EQ((Cells{{0, 0}}), grid().getCells(p_small, Vector(0, 0)));
}

TEST_F(GridCover, OutsideTheWorldIsTheMarkerAlone) {
  SpyObject* p_o = solidAt(Vector(-5, -5));
  EXPECT_EQ((Cells{Grid::OUT_OF_BOUNDS}), grid().getCells(p_o, p_o->getPosition()));
  EXPECT_EQ(1, grid().getObjects(Grid::OUT_OF_BOUNDS).getCount());
  EXPECT_EQ(0, grid().getObjects({0, 0}).getCount());
}

TEST_F(GridCover, BorderObjectIsInCellsAndOutOfBoundsButCollidesOnce) {
  SpyObject* p_border = solidAt(Vector(0, 0));  // box from -0.5: reaches outside
  EXPECT_EQ((Cells{Grid::OUT_OF_BOUNDS, {0, 0}}), grid().getCells(p_border, Vector(0, 0)));
  SpyObject* p_mover = solidAt(Vector(1, 1));
  ot::ObjectList hits = grid().getCollisions(p_mover, Vector(0.5f, 0.5f));
  ASSERT_EQ(1, hits.getCount());
  EXPECT_EQ(p_border, hits[0]);
}

TEST_F(GridCover, FarEdgeOfTheWorldCountsAsOutside) {
  SpyObject* p_o = solidAt(Vector(99.5f, 10), Box(Vector(-0.5f, 0), 1, 1));  // ends on x 100
  Cells cells = grid().getCells(p_o, p_o->getPosition());
  EXPECT_EQ(1u, cells.count(Grid::OUT_OF_BOUNDS));
  EXPECT_EQ(1u, cells.count({1, 4}));
}

TEST_F(GridCover, FarApartOutsidersAreSeparatedByTheBoxTest) {
  solidAt(Vector(-50, -50));
  SpyObject* p_b = solidAt(Vector(200, 200));
  EXPECT_EQ(2, grid().getObjects(Grid::OUT_OF_BOUNDS).getCount());
  EXPECT_EQ(0, grid().getCollisions(p_b, p_b->getPosition()).getCount());
}

TEST_F(GridCover, MovingOutAndBackMovesTheEntries) {
  SpyObject* p_o = solidAt(Vector(10, 4));
  EXPECT_EQ(1, grid().getObjects({0, 0}).getCount());
  p_o->setPosition(Vector(-10, 4));
  EXPECT_EQ(0, grid().getObjects({0, 0}).getCount());
  EXPECT_EQ(1, grid().getObjects(Grid::OUT_OF_BOUNDS).getCount());
  p_o->setPosition(Vector(30, 4));
  EXPECT_EQ(0, grid().getObjects(Grid::OUT_OF_BOUNDS).getCount());
  EXPECT_EQ(1, grid().getObjects({0, 1}).getCount());
}

TEST_F(GridCover, SmallStepKeepsAnObjectsPlaceInItsCell) {
  SpyObject* p_first = solidAt(Vector(5, 4));
  SpyObject* p_second = solidAt(Vector(6, 4));
  p_first->setPosition(Vector(5.5f, 4));
  ot::ObjectList cell = grid().getObjects({0, 0});
  ASSERT_EQ(2, cell.getCount());
  EXPECT_EQ(p_first, cell[0]);
  EXPECT_EQ(p_second, cell[1]);
}

TEST_F(GridCover, CollisionsComeInCellOrderThenListOrder) {
  SpyObject* p_mover = solidAt(Vector(50, 50));  // outside, away from the others
  SpyObject* p_lower = solidAt(Vector(20, 8), Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f));
  SpyObject* p_upper = solidAt(Vector(20, 7.6f));
  ot::ObjectList hits = grid().getCollisions(p_mover, Vector(20, 7.8f));
  ASSERT_EQ(2, hits.getCount());
  // Both stand in row 0 and row 1; row 0's list has them in order of entry.
  EXPECT_EQ(p_lower, hits[0]);
  EXPECT_EQ(p_upper, hits[1]);
}

TEST_F(GridCover, BoundaryChangeEmptiesTheGrid) {
  SpyObject* p_a = solidAt(Vector(10, 4));
  SpyObject* p_b = solidAt(Vector(10.5f, 4));
  EXPECT_EQ(1, grid().getCollisions(p_b, p_b->getPosition()).getCount());
  world().setBoundary(Box(Vector(0, 0), 60, 20));
  EXPECT_EQ(0, grid().getCollisions(p_b, p_b->getPosition()).getCount());
  EXPECT_EQ(2, world().getSceneGraph().solidObjects().getCount());
  EXPECT_EQ(0, world().objectsOfType("Spy").getCount());
  (void)p_a;
}

TEST_F(GridCover, NewCellSizeRefillsFromTheSolidObjects) {
  solidAt(Vector(10, 4));
  grid().setDimensions(10, 10);
  EXPECT_EQ(10, grid().getNumCols());
  EXPECT_EQ(3, grid().getNumRows());
  EXPECT_EQ(1, grid().getObjects({0, 1}).getCount());
  grid().setDimensions(20, 8);  // the grid outlives the test
}

TEST_F(GridCover, ZeroBoundaryGivesAnEmptyLegalGrid) {
  world().setBoundary(Box(Vector(0, 0), 0, 0));
  EXPECT_EQ(0, grid().getNumCols());
  SpyObject* p_o = solidAt(Vector(3, 3));
  EXPECT_EQ((Cells{Grid::OUT_OF_BOUNDS}), grid().getCells(p_o, p_o->getPosition()));
}

TEST_F(GridCover, DumpListsCellsAndOutsiders) {
  world().setBoundary(Box(Vector(0, 0), 20, 8));
  SpyObject* p_o = solidAt(Vector(-3, 3));
  std::string expected = "GRID\ndimensions: (20,8)\nCell (0,0): count=0\nOut of bounds: count=1\n Spy(" +
                         std::to_string(p_o->getId()) + ")";
  EXPECT_EQ(expected, grid().toString());
}

TEST(Grid, UnallocatedGridRefusesWithItsMessages) {
  Grid grid;
  EXPECT_EQ(-1, grid.insertObject(nullptr));
  EXPECT_EQ(-1, grid.removeObject(nullptr));
  EXPECT_EQ(-1, grid.updatePosition(nullptr, Vector()));
  EXPECT_EQ(0, grid.getCollisions(nullptr, Vector()).getCount());
  EXPECT_EQ("", grid.toString());
}
