#include "engine/world/Geometry.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using namespace ot;

TEST(Geometry, RangeIncludesItsEnds) {
  EXPECT_TRUE(valueInRange(4, 0, 4));
  EXPECT_TRUE(valueInRange(0, 0, 4));
  EXPECT_FALSE(valueInRange(4.01f, 0, 4));
  EXPECT_FALSE(valueInRange(NAN, 0, 4));
  EXPECT_FLOAT_EQ(5.0f, distance(Vector(1, 1), Vector(4, 5)));
}

TEST(Geometry, BoxesThatTouchOrNestIntersect) {
  EXPECT_TRUE(boxIntersectsBox(Box(Vector(0, 0), 1, 1), Box(Vector(1, 0), 1, 1)));
  EXPECT_TRUE(boxIntersectsBox(Box(Vector(0, 0), 1, 1), Box(Vector(1, 1), 1, 1)));
  EXPECT_FALSE(boxIntersectsBox(Box(Vector(0, 0), 1, 1), Box(Vector(1.01f, 0), 1, 1)));
  EXPECT_TRUE(boxIntersectsBox(Box(Vector(0, 0), 10, 10), Box(Vector(2, 2), 1, 1)));
  EXPECT_TRUE(boxIntersectsBox(Box(Vector(2, 2), 1, 1), Box(Vector(0, 0), 10, 10)));
  EXPECT_TRUE(boxIntersectsBox(Box(Vector(3, 3), 0, 0), Box(Vector(0, 0), 10, 10)));
}

TEST(Geometry, ContainmentCountsTheEdges) {
  Box b(Vector(0, 0), 2, 2);
  EXPECT_TRUE(boxContainsPosition(b, Vector(2, 2)));
  EXPECT_FALSE(boxContainsPosition(b, Vector(2.1f, 1)));
  EXPECT_TRUE(boxContainsBox(b, b));
  EXPECT_FALSE(boxContainsBox(b, Box(Vector(1, 1), 2, 1)));
}

TEST(Geometry, LinesCrossIncludingAtTheirEndsButNeverWhenParallel) {
  EXPECT_TRUE(lineIntersectsLine(Line(Vector(0, 0), Vector(2, 2)), Line(Vector(0, 2), Vector(2, 0))));
  EXPECT_TRUE(lineIntersectsLine(Line(Vector(0, 0), Vector(1, 1)), Line(Vector(1, 1), Vector(2, 0))));
  EXPECT_FALSE(lineIntersectsLine(Line(Vector(0, 0), Vector(2, 0)), Line(Vector(1, 0), Vector(3, 0))));
  EXPECT_FALSE(lineIntersectsLine(Line(Vector(0, 0), Vector(1, 1)), Line(Vector(3, 0), Vector(2, 1))));
}

TEST(Geometry, LineMeetsABoxBySideOrFromInside) {
  Box b(Vector(0, 0), 10, 10);
  EXPECT_TRUE(lineIntersectsBox(Line(Vector(-5, 5), Vector(5, 5)), b));
  EXPECT_TRUE(lineIntersectsBox(Line(Vector(2, 2), Vector(3, 3)), b));
  EXPECT_TRUE(lineIntersectsBox(Line(Vector(0, 2), Vector(0, 8)), b)) << "along a side";
  EXPECT_FALSE(lineIntersectsBox(Line(Vector(11, 0), Vector(11, 10)), b));
}

TEST(Geometry, CircleMeetsABoxOnlyByHoldingACorner) {
  Box b(Vector(0, 0), 10, 10);
  EXPECT_FALSE(circleIntersectsBox(Circle(Vector(5, 5), 1), b));
  EXPECT_FALSE(circleIntersectsBox(Circle(Vector(-1, 0), 1), b)) << "radius equal to the distance";
  EXPECT_TRUE(circleIntersectsBox(Circle(Vector(-1, 0), 1.01f), b));
  EXPECT_TRUE(circleIntersectsBox(Circle(Vector(11, 11), 2), b));
}

TEST(Geometry, AnglesStartUpAndTurnClockwise) {
  EXPECT_NEAR(0.0f, vectorToAngle(Vector(0, -1)), 1e-4);
  EXPECT_FLOAT_EQ(90.0f, vectorToAngle(Vector(1, 0)));
  EXPECT_FLOAT_EQ(180.0f, vectorToAngle(Vector(0, 1)));
}

TEST(Geometry, BinaryStringsAreAlwaysThirtyTwoBits) {
  EXPECT_EQ("00000000000000000000000000000101", toBinaryString(5));
  EXPECT_EQ(std::string(32, '1'), toBinaryString(0xffffffffu));
}

TEST(Geometry, TextOfLinesAndCircles) {
  EXPECT_EQ("[(1,2)(3,4)]", Line(Vector(1, 2), Vector(3, 4)).toString());
  EXPECT_EQ("(1,2) r: 2.5", Circle(Vector(1, 2), 2.5f).toString());
}

namespace {

class WorldGeometry : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 1; }
};

}  // namespace

TEST_F(WorldGeometry, ViewAndWorldDifferByTheViewCorner) {
  ot::WorldManager& world = ot::WorldManager::getInstance();
  world.setBoundary(Box(Vector(0, 0), 200, 100));
  world.setView(Box(Vector(30, 10), 80, 24));
  EXPECT_EQ(Vector(35, 12), viewToWorld(Vector(5, 2)));
  EXPECT_EQ(Vector(5, 2), worldToView(Vector(35, 12)));
}

TEST_F(WorldGeometry, NormalTellsTheSideThatWasHit) {
  auto* p_wall = new ot_test::SpyObject;
  p_wall->setPosition(Vector(10, 12));
  auto* p_o = new ot_test::SpyObject;
  p_o->setPosition(Vector(10, 11));
  p_o->setVelocity(Vector(0, 1));
  EXPECT_EQ(Vector(0, -1), getNormal(p_o, p_wall));
  p_o->setPosition(Vector(9, 12));
  p_o->setVelocity(Vector(1, 0));
  EXPECT_EQ(Vector(-1, 0), getNormal(p_o, p_wall));
  // At rest, the object's own place decides.
  p_o->setVelocity(Vector(0, 0));
  p_o->setPosition(Vector(11, 13));
  EXPECT_EQ(Vector(1, 1), getNormal(p_o, p_wall));
  p_o->setPosition(Vector(30, 30));
  EXPECT_EQ(Vector(0, 0), getNormal(p_o, p_wall));
  EXPECT_TRUE(ot_test::logHas(logMessages(), "getNormal(): No collision detected. Returning (0,0)."));
}
