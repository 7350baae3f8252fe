#include "game/GameOver.h"

#include "engine/core/GameManager.h"
#include "engine/world/WorldManager.h"
#include "game/game.h"
#include "tests/support/GameWorld.h"

namespace {

class GameOverTest : public ot_test::GameWorld {};

TEST_F(GameOverTest, EndsTheGameOneHundredTwentyStepsAfterTheHerosDeath) {
  Hero* p_hero = makeHero();
  p_hero->addKillReward(25);
  p_hero->takeDamage(10);
  auto* p_end = dynamic_cast<GameOver*>(ot::WorldManager::getInstance().objectsOfType("GameOver")[0]);
  ASSERT_NE(nullptr, p_end);
  EXPECT_EQ(ot::SPECTRAL, p_end->getSolidness());
  EXPECT_EQ(4, p_end->getAltitude());
  ot_test::runFrames(500);
  EXPECT_EQ(120, ot::GameManager::getInstance().getStepCount());
  EXPECT_TRUE(ot::GameManager::getInstance().getGameOver());
}

}  // namespace
