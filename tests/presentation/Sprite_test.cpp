#include "engine/presentation/Sprite.h"

#include "tests/support/HeadlessEngine.h"

namespace {

class SpriteTest : public ot_test::HeadlessEngine {};

TEST_F(SpriteTest, FramesStopAtItsCapacity) {
  ot::Sprite sprite(3);
  for (const char* text : {"\\o//o\\", "/o\\\\o/"}) EXPECT_EQ(0, sprite.addFrame(ot::Frame(3, 2, text)));
  EXPECT_EQ("", sprite.getFrame(2).getString() + sprite.getFrame(-1).getString());  // 2: within capacity
  EXPECT_EQ(0, sprite.draw(2, ot::Vector(3, 3), 0, ot::NONE));                      // draws nothing
  EXPECT_EQ(0, sprite.addFrame(ot::Frame(3, 2, "ab")));
  EXPECT_EQ(-1, sprite.addFrame(ot::Frame(3, 2, "cd")));
  EXPECT_EQ("ab", sprite.getFrame(2).getString());
  sprite.setLabel("bat");
  sprite.setColor(ot::MAGENTA);
  EXPECT_EQ("bat, 3frames, 0 x 0, Magenta", sprite.toString());
  ot::Sprite broken(-1);  // still usable, without frames
  EXPECT_TRUE(ot_test::logHas(logMessages(), "Sprite::Sprite(): Error! Unable to allocate -1 frames."));
  EXPECT_EQ(-1, broken.addFrame(ot::Frame(1, 1, "a")));
  EXPECT_EQ("[Undefined], 0frames, 0 x 0, White", broken.toString());
}

}  // namespace
