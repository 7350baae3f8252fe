#include "engine/presentation/Frame.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/HeadlessEngine.h"

namespace {

using ot::Frame;
using ot::Vector;

// The characters of one output row under a transform.
std::string row(const Frame& frame, int y, ot::Transform transform) {
  std::string text;
  for (int x = 0; x < frame.getWidth(); x++) text += frame.getChar(x, y, transform);
  return text;
}

TEST(Frame, TransformsGiveTheReadingOrder) {
  Frame frame(3, 2, "abc/\\_");
  EXPECT_EQ("abc", row(frame, 0, ot::NONE));
  EXPECT_EQ("/\\_", row(frame, 1, ot::NONE));
  EXPECT_EQ("/\\_", row(frame, 0, ot::VERTICAL));
  EXPECT_EQ("abc", row(frame, 1, ot::VERTICAL));
  // Mirroring moves characters without replacing them: a slash stays a slash.
  EXPECT_EQ("cba", row(frame, 0, ot::HORIZONTAL));
  EXPECT_EQ("_\\/", row(frame, 1, ot::HORIZONTAL));
  EXPECT_EQ("_\\/", row(frame, 0, ot::BOTH));
  EXPECT_EQ("cba", row(frame, 1, ot::BOTH));
  EXPECT_EQ("abc", row(frame, 0, static_cast<ot::Transform>(7)));
}

// Headless, drawCh fails on the first character it is given.
class FrameDrawTest : public ot_test::HeadlessEngine {};

TEST_F(FrameDrawTest, EmptyFrameSucceedsAndOthersFailHeadless) {
  EXPECT_EQ(0, Frame().draw(Vector(5, 5), ot::RED, 0, ot::NONE));
  EXPECT_EQ(-1, Frame(2, 1, "ab").draw(Vector(5, 5), ot::RED, 0, ot::NONE));
}

TEST_F(FrameDrawTest, TransparentCharactersAreNeverDrawn) {
  // Nothing is handed to the display, so nothing can fail.
  EXPECT_EQ(0, Frame(3, 1, "###").draw(Vector(5, 5), ot::RED, '#', ot::BOTH));
  EXPECT_EQ(-1, Frame(3, 1, "## ").draw(Vector(5, 5), ot::RED, '#', ot::NONE));
}

TEST_F(FrameDrawTest, StringShorterThanItsSizeIsRefused) {
  EXPECT_EQ(-1, Frame(3, 2, "abc").draw(Vector(5, 5), ot::RED, 0, ot::NONE));
  EXPECT_TRUE(ot_test::logHas(logMessages(), "Frame::draw(): Error! 3 x 2 frame holds only 3 characters."));
}

}  // namespace
