#include "engine/presentation/Sprite.h"

#include <gtest/gtest.h>

#include "tests/support/HeadlessEngine.h"

namespace {

using ot::Frame;
using ot::Sprite;
using ot::Vector;

TEST(Sprite, AddFrameBeyondCapacityFailsAndKeepsTheFirst) {
  Sprite sprite(2);
  EXPECT_EQ(0, sprite.addFrame(Frame(1, 1, "a")));
  EXPECT_EQ(0, sprite.addFrame(Frame(1, 1, "b")));
  EXPECT_EQ(-1, sprite.addFrame(Frame(1, 1, "c")));
  EXPECT_EQ(2, sprite.getFrameCount());
  EXPECT_EQ("a", sprite.getFrame(0).getString());
  EXPECT_EQ("b", sprite.getFrame(1).getString());
}

TEST(Sprite, FrameNumbersOutsideTheAddedGiveEmptyFrames) {
  Sprite sprite(3);
  sprite.addFrame(Frame(1, 1, "a"));
  EXPECT_EQ("", sprite.getFrame(-1).getString());
  EXPECT_EQ("", sprite.getFrame(1).getString());  // within capacity, not added
  EXPECT_EQ(0, sprite.getFrame(1).getWidth());
  // An empty frame draws nothing and succeeds.
  EXPECT_EQ(0, sprite.draw(5, Vector(3, 3), 0, ot::NONE));
}

TEST(Sprite, ToStringHasNoBlankBeforeFrames) {
  Sprite sprite(3);
  EXPECT_EQ("[Undefined], 0frames, 0 x 0, White", sprite.toString());
  EXPECT_EQ(1, sprite.getSlowdown());
  EXPECT_EQ(0, sprite.getTransparency());
  sprite.setLabel("bat");
  sprite.setWidth(3);
  sprite.setHeight(2);
  sprite.setColor(ot::MAGENTA);
  sprite.addFrame(Frame(3, 2, "\\o//o\\"));
  sprite.addFrame(Frame(3, 2, "/o\\\\o/"));
  EXPECT_EQ("bat, 2frames, 3 x 2, Magenta", sprite.toString());
}

class SpriteTest : public ot_test::HeadlessEngine {};

TEST_F(SpriteTest, FailedAllocationLeavesAUsableEmptySprite) {
  Sprite sprite(-1);
  EXPECT_TRUE(ot_test::logHas(logMessages(), "Sprite::Sprite(): Error! Unable to allocate -1 frames."));
  EXPECT_EQ(0, sprite.getMaxFrameCount());
  EXPECT_EQ(-1, sprite.addFrame(Frame(1, 1, "a")));
  sprite.setLabel("broken");
  sprite.setColor(ot::RED);
  EXPECT_EQ("broken, 0frames, 0 x 0, Red", sprite.toString());
}

}  // namespace
