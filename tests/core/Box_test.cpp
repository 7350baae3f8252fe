#include "engine/core/Box.h"

#include <gtest/gtest.h>

using ot::Box;
using ot::Vector;

TEST(Box, DefaultsToZeroAndComparesExactly) {
  Box zero;
  EXPECT_EQ(Vector(0, 0), zero.getCorner());
  EXPECT_EQ(0.0f, zero.getHorizontal());
  EXPECT_EQ(Box(Vector(), 0, 0), zero);
  Box b(Vector(-0.5f, -0.5f), 0.99f, 0.99f);
  EXPECT_NE(zero, b);
  b.setVertical(1.0f);
  EXPECT_NE(Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f), b);
}

TEST(Box, PrintsCornerAndSides) { EXPECT_EQ("(1,2) h: 3.5 v: 4", Box(Vector(1, 2), 3.5f, 4).toString()); }
