#include "engine/presentation/Shape.h"

#include "tests/support/HeadlessEngine.h"

namespace {

class ShapeTest : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 5; }
};

TEST_F(ShapeTest, CirclePointCountIsTheSizeClamped) {
  ot::Shape shape;
  const float sizes_and_points[] = {5.9f, 5, 2, 3, 3, 3, 10, 10, 10.5f, 10, -4, 3};
  for (int i = 0; i < 12; i += 2) {
    shape.setSize(sizes_and_points[i]);
    EXPECT_EQ(sizes_and_points[i + 1], static_cast<float>(shape.getPointCount())) << sizes_and_points[i];
  }
  shape.setType(ot::SHAPE_TRIANGLE);
  shape.setType(3);
  EXPECT_EQ(ot::SHAPE_TRIANGLE, shape.getType());
  shape.setType(-1);
  EXPECT_EQ(ot::SHAPE_UNDEFINED, shape.getType());
  shape.draw(ot::Vector(5, 5));  // without a window: only a line
  auto log = logMessages();
  EXPECT_TRUE(ot_test::logHas(log, "Shape::setType(): Unknown shape type 3. Ignoring."));
  EXPECT_TRUE(ot_test::logHas(log, "Shape::draw(): DisplayManager window not defined."));
}

TEST_F(ShapeTest, NamedColoursCompareWithoutChannelsOrOpacity) {
  ot::Shape a, b;
  // The cell's 12.8 pixels cut to 12, times font_scale 2.
  EXPECT_EQ("circle, size 24.000000, White, 255", a.toString());
  b.setOpacity(10);
  a.setColor(1, 2, 3);
  b.setColor(4, 5, 6);
  EXPECT_TRUE(a != b);  // custom: the channels count
  a.setColor(ot::RED);
  b.setColor(ot::RED);
  EXPECT_TRUE(a == b);  // named: they don't, nor does the opacity
}

}  // namespace
