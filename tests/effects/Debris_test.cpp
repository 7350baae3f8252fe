#include "engine/effects/Debris.h"

#include <gtest/gtest.h>

#include "tests/support/HeadlessEngine.h"

namespace {

using DebrisTest = ot_test::HeadlessEngine;

TEST_F(DebrisTest, RotationWrapsOncePerDrawnFrame) {
  auto* forward = new ot::Debris(10, 255, ot::RED, ot::Vector(), '#', 200.0f);
  EXPECT_EQ(ot::SHAPE_UNDEFINED, forward->getShape().getType());  // only the character shows
  forward->draw();
  forward->draw();
  EXPECT_FLOAT_EQ(40.0f, forward->getRotation());

  auto* backward = new ot::Debris(10, 255, ot::RED, ot::Vector(), '#', -30.0f);
  backward->draw();
  EXPECT_FLOAT_EQ(330.0f, backward->getRotation());

  // Beyond a full turn a frame, one correction leaves it out of range.
  auto* wild = new ot::Debris(10, 255, ot::RED, ot::Vector(), '#', 800.0f);
  wild->draw();
  EXPECT_FLOAT_EQ(440.0f, wild->getRotation());
}

}  // namespace
