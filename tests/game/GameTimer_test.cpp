#include "game/GameTimer.h"

#include <tuple>

#include "engine/presentation/DisplayManager.h"
#include "game/game.h"
#include "tests/support/GameWorld.h"

namespace {

// Seconds, the level they earn, the time to the next rise, and its text.
class GameTimerRule : public ::testing::TestWithParam<std::tuple<int, int, int, std::string>> {};

TEST_P(GameTimerRule, LevelRisesOnItsSchedule) {
  auto [seconds, level, to_next, text] = GetParam();
  EXPECT_EQ(std::make_tuple(level, to_next, text),
            std::make_tuple(levelForTime(seconds), secondsToNextLevel(seconds), formatTime(seconds)));
}

INSTANTIATE_TEST_SUITE_P(
    Times, GameTimerRule,
    ::testing::Values(std::make_tuple(0, 0, 120, "0:00"), std::make_tuple(119, 0, 1, "1:59"),
                      std::make_tuple(120, 1, 120, "2:00"), std::make_tuple(239, 1, 1, "3:59"),
                      std::make_tuple(240, 2, 60, "4:00"), std::make_tuple(299, 2, 1, "4:59"),
                      std::make_tuple(300, 3, 60, "5:00"), std::make_tuple(6005, 98, 55, "100:05")));

class GameTimerTest : public ot_test::GameWorld {
 protected:
  // Steps of 33 ms until the play time reaches the seconds.
  static int stepsFor(int seconds) { return (seconds * 1000 + 32) / 33; }
};

TEST_F(GameTimerTest, TheStatusLineShowsTheNextRise) {
  makeHero();
  auto* p_timer = new GameTimer;
  EXPECT_EQ("Time 0:00   Enemy Lv 0 (next 2:00)", p_timer->statusLine());
  step(stepsFor(119));
  EXPECT_EQ("Time 1:59   Enemy Lv 0 (next 0:01)", p_timer->statusLine());
  step(stepsFor(120) - stepsFor(119));
  EXPECT_EQ("Time 2:00   Enemy Lv 1 (next 2:00)", p_timer->statusLine());
}

TEST_F(GameTimerTest, ARiseBoostsLivingEnemies) {
  makeHero();
  g_enemy_level = 5;
  auto* p_timer = new GameTimer;  // takes the level back to 0
  EXPECT_EQ(0, getEnemyLevel());
  auto* p_slime = new Enemy(0, 40, 27);
  p_slime->takeDamage(1);
  auto* p_dead = new Enemy(2, 41, 27);
  p_dead->takeDamage(8);
  step(stepsFor(120) - 1);
  EXPECT_EQ(0, getEnemyLevel());
  step(1);
  EXPECT_EQ(std::make_tuple(1, 4, 5, 0, 90, 6),
            std::make_tuple(getEnemyLevel(), p_slime->getHp(), p_slime->getMaxHp(), p_dead->getLevel(),
                            p_timer->getFlashTimer(), ot::DisplayManager::getInstance().getShakeDuration()));
  EXPECT_TRUE(ot_test::logHas(logMessages(), "GameTimer: enemies boosted to level 1"));
  step(1);
  EXPECT_EQ(89, p_timer->getFlashTimer());
}

TEST_F(GameTimerTest, TheClockStopsWhenTheHeroIsGone) {
  Hero* p_hero = makeHero();
  auto* p_timer = new GameTimer;
  p_hero->getShop()->open();
  step(30);
  EXPECT_EQ(990, p_timer->getElapsedMs());
  p_hero->getShop()->close();
  p_hero->takeDamage(10);
  ot_test::runFrames(1);  // the hero leaves the world at the frame's end
  int at_death = p_timer->getElapsedMs();
  ot_test::runFrames(10);
  EXPECT_EQ(at_death, p_timer->getElapsedMs());
}

}  // namespace
