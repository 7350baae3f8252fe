#include "engine/core/Vector.h"

#include <gtest/gtest.h>

using ot::Vector;

TEST(Vector, NormalizeMakesUnitLengthAndLeavesZeroAlone) {
  Vector v(3, 4);
  EXPECT_FLOAT_EQ(5.0f, v.getMagnitude());
  v.normalize();
  EXPECT_FLOAT_EQ(0.6f, v.getX());
  EXPECT_FLOAT_EQ(0.8f, v.getY());

  Vector zero;
  zero.normalize();
  EXPECT_EQ(Vector(0, 0), zero);
  EXPECT_TRUE(!zero);
  EXPECT_FALSE(!Vector(0, 0.0001f));
}

TEST(Vector, ArithmeticAndExactComparison) {
  Vector a(1, 2);
  Vector b(0.5f, -1);
  EXPECT_EQ(Vector(1.5f, 1), a + b);
  EXPECT_EQ(Vector(0.5f, 3), a - b);
  a += b;
  EXPECT_EQ(Vector(1.5f, 1), a);
  a.scale(2);
  EXPECT_EQ(Vector(3, 2), a);
  EXPECT_NE(Vector(0.1f + 0.2f, 0), Vector(0.3f, 0.0f + 1e-7f));
}

TEST(Vector, PrintsWithoutBlanksOrTrailingZeros) {
  EXPECT_EQ("(1,2)", Vector(1, 2).toString());
  EXPECT_EQ("(3.5,-0.25)", Vector(3.5f, -0.25f).toString());
}
