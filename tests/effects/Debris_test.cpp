#include "engine/effects/Debris.h"

#include "tests/support/HeadlessEngine.h"

using DebrisTest = ot_test::HeadlessEngine;

TEST_F(DebrisTest, ShowsOnlyItsCharacterWhoseRotationWrapsOncePerDrawnFrame) {
  for (auto [speed, twice] : {std::pair(200.0f, 40.0f), {-30.0f, 300.0f}, {800.0f, 880.0f}}) {
    auto* p_debris = new ot::Debris(10, 255, ot::RED, ot::Vector(), '#', speed);
    p_debris->draw();
    p_debris->draw();
    EXPECT_EQ(std::make_tuple(ot::SHAPE_UNDEFINED, twice),
              std::make_tuple(p_debris->getShape().getType(), p_debris->getRotation()));
  }
}
