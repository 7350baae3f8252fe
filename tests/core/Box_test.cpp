#include "engine/core/Box.h"

#include <gtest/gtest.h>

TEST(Box, ComparesEveryPartExactly) {
  const ot::Box b(ot::Vector(1, 2), 3.5f, 4);
  EXPECT_EQ(ot::Box(ot::Vector(1, 2), 3.5f, 4), b);
  EXPECT_NE(ot::Box(ot::Vector(1, 2.0001f), 3.5f, 4), b);
  EXPECT_NE(ot::Box(ot::Vector(1, 2), 3.5001f, 4), b);
  EXPECT_NE(ot::Box(ot::Vector(1, 2), 3.5f, 4.0001f), b);
  EXPECT_EQ("(1,2) h: 3.5 v: 4", b.toString());
}
