#include "engine/presentation/Animation.h"

#include <gtest/gtest.h>

#include <vector>

#include "engine/presentation/Sprite.h"
#include "tests/support/HeadlessEngine.h"

namespace {

using ot::Animation;
using ot::Box;
using ot::Frame;
using ot::Sprite;
using ot::Vector;

// Headless, every drawing fails, and the animation advances all the same.
class AnimationTest : public ot_test::HeadlessEngine {
 protected:
  void SetUp() override {
    HeadlessEngine::SetUp();
    m_sprite.setLabel("walker");
    m_sprite.setWidth(5);
    m_sprite.setHeight(3);
    for (char c : {'a', 'b', 'c'}) m_sprite.addFrame(Frame(5, 3, std::string(15, c)));
  }

  // The frame index before each of n drawings.
  static std::vector<int> shown(Animation& animation, int n) {
    std::vector<int> indexes;
    for (int i = 0; i < n; i++) {
      indexes.push_back(animation.getIndex());
      animation.draw(Vector(10, 10));
    }
    return indexes;
  }

  Sprite m_sprite{3};
};

TEST(Animation, WithoutSpriteShowsNothingAndSucceeds) {
  Animation animation;
  EXPECT_TRUE(animation.isDirty());
  EXPECT_EQ(0, animation.draw(Vector(1, 1)));
  EXPECT_EQ("sprite , frame_idx 0, slowdown_count 0, transform NONE", animation.toString());
}

TEST_F(AnimationTest, SlowdownShowsEachFrameThatManyDrawingsAndLoops) {
  m_sprite.setSlowdown(3);
  Animation animation;
  animation.setSprite(&m_sprite);
  EXPECT_EQ(-1, animation.draw(Vector(10, 10)));
  EXPECT_EQ((std::vector<int>{0, 0, 1, 1, 1, 2, 2, 2, 0, 0}), shown(animation, 10));
}

TEST_F(AnimationTest, SlowdownOfZeroOrOneAdvancesEachDrawing) {
  for (int slowdown : {0, 1}) {
    SCOPED_TRACE(slowdown);
    m_sprite.setSlowdown(slowdown);
    Animation animation;
    animation.setSprite(&m_sprite);
    EXPECT_EQ((std::vector<int>{0, 1, 2, 0, 1}), shown(animation, 5));
  }
}

TEST_F(AnimationTest, SlowdownCountOfMinusOneFreezesTheFrame) {
  Animation animation;
  animation.setSprite(&m_sprite);
  animation.setIndex(2);
  animation.setSlowdownCount(-1);
  EXPECT_EQ((std::vector<int>{2, 2, 2, 2}), shown(animation, 4));
  EXPECT_EQ(-1, animation.getSlowdownCount());
}

TEST_F(AnimationTest, SetSpriteTakesItsLabelAndRestartsEvenWhenTheSame) {
  Animation animation;
  animation.setSprite(&m_sprite);
  EXPECT_EQ("walker", animation.getName());
  shown(animation, 2);
  EXPECT_EQ(2, animation.getIndex());
  animation.setSprite(&m_sprite);
  EXPECT_EQ(0, animation.getIndex());
  EXPECT_EQ(0, animation.getSlowdownCount());
  // Null shows nothing and keeps the name.
  animation.setSprite(nullptr);
  EXPECT_EQ(nullptr, animation.getSprite());
  EXPECT_EQ("walker", animation.getName());
}

TEST_F(AnimationTest, UnknownTransformIsLoggedAndIgnored) {
  Animation animation;
  animation.setTransform(ot::HORIZONTAL);
  animation.setTransform(static_cast<ot::Transform>(4));
  EXPECT_EQ(ot::HORIZONTAL, animation.getTransform());
  EXPECT_TRUE(
      ot_test::logHas(logMessages(), "Animation::setTransform(): Error! Unknown transform 4. Ignoring."));
  EXPECT_EQ("sprite , frame_idx 0, slowdown_count 0, transform HORIZONTAL", animation.toString());
}

TEST_F(AnimationTest, BoxIsTheSpriteAroundTheCentreOrJustUnderACell) {
  Animation animation;
  EXPECT_EQ(Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f), animation.getBox());
  animation.setSprite(&m_sprite);
  EXPECT_EQ(Box(Vector(-2.5f, -1.5f), 5, 3), animation.getBox());
}

TEST_F(AnimationTest, ComparisonIgnoresTransformButNotPlayState) {
  Animation a, b;
  a.setSprite(&m_sprite);
  b.setSprite(&m_sprite);
  b.setTransform(ot::BOTH);
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a != b);
  b.setIndex(1);
  EXPECT_TRUE(a != b);
  b.setIndex(0);
  b.setSlowdownCount(2);
  EXPECT_FALSE(a == b);
  b.setSlowdownCount(0);
  b.setName("other");
  EXPECT_FALSE(a == b);
  Animation c;
  c.setName("walker");  // same name, no sprite
  EXPECT_FALSE(a == c);
}

}  // namespace
