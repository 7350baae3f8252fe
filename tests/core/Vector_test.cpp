#include "engine/core/Vector.h"

#include <gtest/gtest.h>

using ot::Vector;

TEST(Vector, NormalizeLeavesZeroAlone) {
  Vector v(3, 4), zero;
  v.normalize();
  zero.normalize();
  EXPECT_EQ(Vector(0.6f, 0.8f), v);
  EXPECT_TRUE(!zero);
  EXPECT_FALSE(!Vector(0, 0.0001f));
  EXPECT_NE(Vector(0.3f, 0), Vector(0.3f, 1e-7f));
  EXPECT_EQ("(3.5,-0.25)", Vector(3.5f, -0.25f).toString());
}
