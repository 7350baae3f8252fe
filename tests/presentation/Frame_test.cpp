#include "engine/presentation/Frame.h"

#include "tests/support/HeadlessEngine.h"

namespace {

// Placement, mirroring and transparency are checked on a window.
class FrameTest : public ot_test::HeadlessEngine {};

TEST_F(FrameTest, StringShorterThanItsSizeIsRefused) {
  EXPECT_EQ(-1, ot::Frame(3, 2, "abc").draw(ot::Vector(5, 5), ot::RED, 0, ot::NONE));
  EXPECT_TRUE(ot_test::logHas(logMessages(), "Frame::draw(): Error! 3 x 2 frame holds only 3 characters."));
  EXPECT_EQ(0, ot::Frame().draw(ot::Vector(5, 5), ot::RED, 0, ot::NONE));
}

}  // namespace
