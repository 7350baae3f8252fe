#include "game/Slash.h"

#include "game/game.h"
#include "tests/support/GameWorld.h"

namespace {

class SlashTest : public ot_test::GameWorld {
 protected:
  void SetUp() override {
    GameWorld::SetUp();
    makeLevel();
  }
};

TEST_F(SlashTest, StrikesItsTileOnce) {
  GridEntity* p_owner = creatureAt(8, 26, 5);
  GridEntity* p_target = creatureAt(9, 26, 5);
  new Slash(9, 26, 2, p_owner);
  new Slash(8, 26, 2, p_owner);  // the owner is never struck
  EXPECT_EQ(3, p_target->getHp());
  EXPECT_EQ(5, p_owner->getHp());
  auto* p_empty = new Slash(11, 26, 2, p_owner);
  EXPECT_EQ(Level::tileCenter(11, 26), p_empty->getPosition());
  GridEntity* p_late = creatureAt(11, 26, 5);  // walks into a standing slash
  ot_test::runFrames(5);
  EXPECT_EQ(5, p_late->getHp());
  EXPECT_EQ(3, countOf("Slash"));
  ot_test::runFrames(1);
  EXPECT_EQ(0, countOf("Slash"));
}

}  // namespace
