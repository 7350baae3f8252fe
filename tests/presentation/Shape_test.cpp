#include "engine/presentation/Shape.h"

#include <gtest/gtest.h>

#include "tests/support/HeadlessEngine.h"

namespace {

using ot::Shape;

// The default window's cells are 12.8 by 32 pixels; font_scale is 2.
class ShapeTest : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 5; }
};

TEST_F(ShapeTest, DefaultIsAWhiteOpaqueCircleOfTheCellTimesFontScale) {
  Shape shape;
  EXPECT_EQ(ot::WHITE, shape.getColor());
  EXPECT_EQ(ot::SHAPE_CIRCLE, shape.getType());
  EXPECT_EQ(255, shape.getOpacity());
  EXPECT_FLOAT_EQ(24.0f, shape.getSize());  // 12.8 cut to 12, times 2
  EXPECT_EQ("circle, size 24.000000, White, 255", shape.toString());
}

TEST_F(ShapeTest, SetTypeTakesMinusOneToTwoAndLogsTheRest) {
  Shape shape;
  shape.setType(ot::SHAPE_TRIANGLE);
  shape.setType(3);
  EXPECT_EQ(ot::SHAPE_TRIANGLE, shape.getType());
  shape.setType(-1);
  EXPECT_EQ(ot::SHAPE_UNDEFINED, shape.getType());
  shape.setType(-2);
  EXPECT_EQ(ot::SHAPE_UNDEFINED, shape.getType());
  auto log = logMessages();
  EXPECT_TRUE(ot_test::logHas(log, "Shape::setType(): Unknown shape type 3. Ignoring."));
  EXPECT_TRUE(ot_test::logHas(log, "Shape::setType(): Unknown shape type -2. Ignoring."));
}

TEST_F(ShapeTest, CirclePointsAreTheSizeHeldBetweenThreeAndTen) {
  Shape shape;
  const std::pair<float, int> cases[] = {{5.9f, 5}, {2.0f, 3}, {3.0f, 3}, {10.0f, 10}, {10.5f, 10}, {-4, 3}};
  for (auto [size, points] : cases) {
    shape.setSize(size);
    EXPECT_EQ(points, shape.getPointCount()) << size;
  }
  shape.setType(ot::SHAPE_SQUARE);
  EXPECT_EQ(4, shape.getPointCount());
  shape.setType(ot::SHAPE_TRIANGLE);
  EXPECT_EQ(3, shape.getPointCount());
}

TEST_F(ShapeTest, ComparisonSkipsOpacityAndChannelsOfNamedColours) {
  Shape a, b;
  b.setOpacity(10);
  EXPECT_TRUE(a == b);
  a.setColor(1, 2, 3);
  b.setColor(4, 5, 6);
  EXPECT_EQ(ot::CUSTOM, a.getColor());
  EXPECT_TRUE(a != b);  // custom: the channels count
  a.setColor(ot::RED);
  b.setColor(ot::RED);
  EXPECT_TRUE(a == b);  // named: they don't
  b.setSize(a.getSize() + 1);
  EXPECT_FALSE(a == b);
  b.setSize(a.getSize());
  b.setType(ot::SHAPE_SQUARE);
  EXPECT_FALSE(a == b);
  b.setSize(2.5f);
  b.setOpacity(7);
  EXPECT_EQ("square, size 2.500000, Red, 7", b.toString());
}

TEST_F(ShapeTest, DrawingWithoutAWindowOnlyLogs) {
  Shape shape;
  shape.setColor(ot::RED);
  shape.draw(ot::Vector(5, 5));
  EXPECT_TRUE(ot_test::logHas(logMessages(), "Shape::draw(): DisplayManager window not defined."));
  EXPECT_EQ(0, shape.getR());  // the channels are stored only on drawing
}

}  // namespace
