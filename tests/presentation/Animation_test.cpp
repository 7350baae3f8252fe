#include "engine/presentation/Animation.h"

#include "engine/presentation/Sprite.h"
#include "tests/support/HeadlessEngine.h"

namespace {

using ot::Vector;

// Headless, every drawing of the three-frame sprite fails; the animation advances all the same.
class AnimationTest : public ot_test::HeadlessEngine {
 protected:
  void SetUp() override {
    HeadlessEngine::SetUp();
    m_sprite.setLabel("walker");
    m_sprite.setWidth(5);
    m_sprite.setHeight(3);
    for (char c : {'a', 'b', 'c'}) m_sprite.addFrame(ot::Frame(5, 3, std::string(15, c)));
    m_animation.setSprite(&m_sprite);
  }

  // The frame index before each of n drawings.
  std::vector<int> shown(int n) {
    std::vector<int> indexes;
    for (int i = 0; i < n; i++) {
      indexes.push_back(m_animation.getIndex());
      EXPECT_EQ(-1, m_animation.draw(Vector(10, 10)));
    }
    return indexes;
  }

  ot::Sprite m_sprite{3};
  ot::Animation m_animation;
};

TEST_F(AnimationTest, SlowdownHoldsEachFrameForThatManyDrawings) {
  m_sprite.setSlowdown(3);
  EXPECT_EQ((std::vector<int>{0, 0, 0, 1, 1, 1, 2, 2, 2, 0, 0}), shown(11));
  for (int slowdown : {0, 1}) {
    m_sprite.setSlowdown(slowdown);
    m_animation.setSprite(&m_sprite);  // the same sprite again restarts it
    EXPECT_EQ((std::vector<int>{0, 1, 2, 0, 1}), shown(5)) << slowdown;
  }
  m_animation.setIndex(2);
  m_animation.setSlowdownCount(-1);
  EXPECT_EQ((std::vector<int>{2, 2, 2}), shown(3));
}

TEST_F(AnimationTest, ComparisonLooksOnlyAtThePlayState) {
  EXPECT_EQ(ot::Box(Vector(-2.5f, -1.5f), 5, 3), m_animation.getBox());
  ot::Animation other = m_animation, unset;
  other.setTransform(ot::BOTH);
  EXPECT_TRUE(m_animation == other);  // the transform isn't compared
  other.setIndex(1);
  unset.setName("walker");  // same name, no sprite
  EXPECT_TRUE(m_animation != other && m_animation != unset);
  m_animation.setSprite(nullptr);  // keeps the name
  EXPECT_EQ(0, m_animation.draw(Vector(1, 1)));
  EXPECT_EQ(ot::Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f), m_animation.getBox());
  m_animation.setTransform(ot::HORIZONTAL);
  m_animation.setTransform(static_cast<ot::Transform>(4));
  EXPECT_EQ("sprite walker, frame_idx 0, slowdown_count 0, transform HORIZONTAL", m_animation.toString());
  EXPECT_TRUE(
      ot_test::logHas(logMessages(), "Animation::setTransform(): Error! Unknown transform 4. Ignoring."));
}

}  // namespace
