#include "engine/world/Geometry.h"

#include <cmath>

#include "engine/core/LogManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using namespace ot;
using namespace ot_test;

TEST(Geometry, BoxesCountTheirEdges) {
  EXPECT_TRUE(valueInRange(4, 0, 4));
  EXPECT_FALSE(valueInRange(NAN, 0, 4));
  Box unit(Vector(0, 0), 1, 1);
  EXPECT_TRUE(boxIntersectsBox(unit, Box(Vector(1, 1), 1, 1)));
  EXPECT_FALSE(boxIntersectsBox(unit, Box(Vector(1.01f, 0), 1, 1)));
  EXPECT_TRUE(boxIntersectsBox(Box(Vector(-1, -1), 3, 3), unit));
}

TEST(Geometry, CirclesMeetBoxesOnlyByHoldingACorner) {
  Box b(Vector(0, 0), 10, 10);
  EXPECT_TRUE(lineIntersectsBox(Line(Vector(0, 2), Vector(0, 8)), b));  // along a side
  EXPECT_FALSE(lineIntersectsBox(Line(Vector(11, 0), Vector(11, 10)), b));
  EXPECT_FALSE(circleIntersectsBox(Circle(Vector(-1, 0), 1), b));
  EXPECT_TRUE(circleIntersectsBox(Circle(Vector(-1, 0), 1.01f), b));
  EXPECT_FALSE(circleIntersectsBox(Circle(Vector(5, -1), 2), b));  // crosses the top side only
}

using GeometryTest = HeadlessEngine;

TEST_F(GeometryTest, NormalSearchPilesUpItsScalings) {
  auto* p_wall = new SpyObject;
  p_wall->setPosition(Vector(10, 12));
  auto* p_o = new SpyObject;
  // The scalings pile up: after a first half-step that hits, the velocity is
  // zero for good and the start, touching only the corner, is kept.
  p_o->setPosition(Vector(9, 11));
  p_o->setVelocity(Vector(0.6f, 0.8f));
  EXPECT_EQ(Vector(-1, -1), getNormal(p_o, p_wall));
  const std::string kLine = "getNormal(): No collision detected. Returning (0,0).";
  p_o->setPosition(Vector(30, 30));
  EXPECT_EQ(Vector(0, 0), getNormal(p_o, p_wall));
  EXPECT_FALSE(logHas(logMessages(), kLine)) << "a level-1 line at level 0";
  LogManager::getInstance().setLogLevel(1);
  getNormal(p_o, p_wall);
  EXPECT_TRUE(logHas(logMessages(), kLine));
}

TEST(Geometry, AnglesStartUpward) {
  // Up is 0 but for the float rounding of a quarter turn.
  EXPECT_NEAR(0.0f, vectorToAngle(Vector(0, -1)), 1e-5);
  EXPECT_FLOAT_EQ(90.0f, vectorToAngle(Vector(1, 0)));
  EXPECT_FLOAT_EQ(180.0f, vectorToAngle(Vector(0, 1)));
  EXPECT_EQ(std::string(29, '0') + "101", toBinaryString(5));
  EXPECT_EQ(std::string(32, '1'), toBinaryString(0xffffffffu));
}
