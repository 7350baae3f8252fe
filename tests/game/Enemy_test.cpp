#include "game/Enemy.h"

#include <cstdlib>
#include <tuple>

#include "engine/world/WorldManager.h"
#include "game/game.h"
#include "tests/support/GameWorld.h"

namespace {

class EnemyTest : public ot_test::GameWorld {
 protected:
  // An enemy whose first action comes after the returned number of steps.
  static Enemy* enemyActingAfter(int type, int x, int y, int& steps, unsigned seed = 7) {
    srand(seed);
    int period = type == 1 ? 7 : type == 2 ? 22 : 16;
    steps = rand() % period + period;
    srand(seed);
    return new Enemy(type, x, y);
  }
};

struct Kind {
  int type, max_hp, damage, reward, period, sight;
};

void PrintTo(const Kind& kind, std::ostream* os) { *os << "type " << kind.type; }

class EnemyKind : public EnemyTest, public ::testing::WithParamInterface<Kind> {};

TEST_P(EnemyKind, TakesTheNumbersOfItsKind) {
  const Kind& kind = GetParam();
  makeLevel();
  auto* p_enemy = new Enemy(kind.type, 5, 5);
  EXPECT_EQ(std::make_tuple(kind.max_hp, kind.max_hp, kind.damage, kind.reward, kind.period, kind.sight),
            std::make_tuple(p_enemy->getMaxHp(), p_enemy->getHp(), p_enemy->getDamage(), p_enemy->getReward(),
                            p_enemy->getMovePeriod(), p_enemy->getSight()));
  EXPECT_EQ(Level::tileCenter(5, 5), p_enemy->getPosition());
  EXPECT_EQ("Enemy", p_enemy->Object::getType());  // the type name, under the kind
}

INSTANTIATE_TEST_SUITE_P(Kinds, EnemyKind,
                         ::testing::Values(Kind{0, 3, 1, 10, 16, 7}, Kind{1, 2, 1, 15, 7, 6},
                                           Kind{2, 8, 3, 50, 22, 9}, Kind{7, 3, 1, 10, 16, 7},
                                           Kind{-1, 3, 1, 10, 16, 7}));

// Type, level, and the hit points and damage it gives.
class EnemyLevel : public EnemyTest, public ::testing::WithParamInterface<std::tuple<int, int, int, int>> {};

TEST_P(EnemyLevel, EachLevelAddsHalfTheBaseHitPoints) {
  auto [type, level, max_hp, damage] = GetParam();
  makeLevel();
  auto* p_enemy = new Enemy(type, 5, 5);
  p_enemy->setLevel(level);
  EXPECT_EQ(std::make_tuple(max_hp, max_hp, damage),
            std::make_tuple(p_enemy->getMaxHp(), p_enemy->getHp(), p_enemy->getDamage()));
  g_enemy_level = level;
  auto* p_later = new Enemy(type, 6, 5);  // made after a rise: that level from the first
  EXPECT_EQ(std::make_pair(max_hp, level), std::make_pair(p_later->getMaxHp(), p_later->getLevel()));
}

INSTANTIATE_TEST_SUITE_P(Levels, EnemyLevel,
                         ::testing::Values(std::make_tuple(0, 1, 5, 2), std::make_tuple(0, 3, 8, 4),
                                           std::make_tuple(1, 1, 3, 2), std::make_tuple(2, 3, 20, 6),
                                           std::make_tuple(2, 0, 8, 3)));

TEST_F(EnemyTest, ALevelRiseKeepsTheDamageTaken) {
  makeLevel();
  auto* p_slime = new Enemy(0, 5, 5);
  p_slime->takeDamage(1);
  p_slime->setLevel(2);
  EXPECT_EQ(std::make_pair(5, 6), std::make_pair(p_slime->getHp(), p_slime->getMaxHp()));
  p_slime->setLevel(1);
  p_slime->setLevel(2);
  EXPECT_EQ(std::make_tuple(6, 3, 2),
            std::make_tuple(p_slime->getMaxHp(), p_slime->getDamage(), p_slime->getLevel()));
}

TEST_F(EnemyTest, StrikesTheHeroFromANeighbouringTileAtItsBeat) {
  Hero* p_hero = makeHero();  // at (3,2)
  int steps = 0;
  enemyActingAfter(0, 4, 2, steps);
  step(steps - 1);
  EXPECT_EQ(10, p_hero->getHp());
  step(1);
  EXPECT_EQ(9, p_hero->getHp());
  step(15);
  EXPECT_EQ(9, p_hero->getHp());
  step(1);  // one period later
  EXPECT_EQ(8, p_hero->getHp());
}

TEST_F(EnemyTest, FromADiagonalNeighbourItStepsInsteadOfStriking) {
  Hero* p_hero = makeHero();
  int steps = 0;
  Enemy* p_slime = enemyActingAfter(0, 4, 3, steps);
  step(steps);
  EXPECT_EQ(10, p_hero->getHp());
  EXPECT_EQ(std::make_pair(3, 3), std::make_pair(p_slime->getGx(), p_slime->getGy()));  // a tie goes sideways
}

TEST_F(EnemyTest, ABlockedBlowStunsItForThirtyStepsThenItsBeatGoesOn) {
  Hero* p_hero = makeHero();
  int steps = 0;
  Enemy* p_slime = enemyActingAfter(0, 4, 2, steps);
  step(steps - 1);
  key(ot::Keyboard::LEFTSHIFT, ot::KEY_PRESSED);
  step(1);
  EXPECT_EQ(10, p_hero->getHp());
  EXPECT_TRUE(p_slime->isStunned());
  step(30);
  EXPECT_FALSE(p_slime->isStunned());
  step(15);
  EXPECT_EQ(10, p_hero->getHp());
  step(1);
  EXPECT_EQ(9, p_hero->getHp());
}

TEST_F(EnemyTest, ChasesAlongTheLongerAxis) {
  makeHero();  // at (3,2)
  int steps = 0;
  Enemy* p_far = enemyActingAfter(0, 7, 3, steps);
  step(steps);
  EXPECT_EQ(std::make_pair(6, 3), std::make_pair(p_far->getGx(), p_far->getGy()));
  // From (4,6) up is a wall; it goes left instead.
  Enemy* p_walled = enemyActingAfter(0, 4, 6, steps, 11);
  step(steps);
  EXPECT_EQ(std::make_pair(3, 6), std::make_pair(p_walled->getGx(), p_walled->getGy()));
}

TEST_F(EnemyTest, BlockedOnBothAxesItWanders) {
  makeHero();
  creatureAt(3, 6, 1);
  srand(3);
  int steps = rand() % 16 + 16;
  int direction = rand() % 4;
  srand(3);
  auto* p_slime = new Enemy(0, 4, 6);
  step(steps);
  // Right, left (taken), down, up (wall); a failed wander stays put.
  const std::pair<int, int> expected[4] = {{5, 6}, {4, 6}, {4, 7}, {4, 6}};
  EXPECT_EQ(expected[direction], std::make_pair(p_slime->getGx(), p_slime->getGy()));
}

TEST_F(EnemyTest, DeathPaysTheHeroButAStashedEnemyPaysNothing) {
  Hero* p_hero = makeHero();
  auto* p_bat = new Enemy(1, 10, 10);
  auto* p_brute = new Enemy(2, 11, 10);
  EXPECT_TRUE(p_bat->takeDamage(5));
  EXPECT_EQ(std::make_tuple(15, 15, 1),
            std::make_tuple(p_hero->getGold(), p_hero->getScore(), p_hero->getKills()));
  EXPECT_GT(countOf("Particle"), 0);
  p_brute->removeSilently();
  EXPECT_EQ(std::make_pair(0, 15), std::make_pair(p_brute->getHp(), p_hero->getGold()));
  ot_test::runFrames(1);
  EXPECT_EQ(0, countOf("Enemy"));
}

}  // namespace
