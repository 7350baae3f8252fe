#include "game/Floors.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include "engine/core/ObjectListIterator.h"
#include "engine/world/WorldManager.h"
#include "game/game.h"
#include "tests/support/GameWorld.h"

namespace {

// type, column, row, hit points
using EnemyState = std::tuple<int, int, int, int>;

class FloorsTest : public ot_test::GameWorld {
 protected:
  void SetUp() override {
    GameWorld::SetUp();
    p_hero = makeHero();
    p_spawner = new Spawner;
    p_spawner->spawnInitial();
  }

  static std::vector<EnemyState> livingEnemies() {
    std::vector<EnemyState> found;
    ot::ObjectList enemies = ot::WorldManager::getInstance().objectsOfType("Enemy");
    for (ot::ObjectListIterator it(&enemies); !it.isDone(); it.next()) {
      auto* p_enemy = dynamic_cast<Enemy*>(it.currentObject());
      if (p_enemy->getHp() > 0)
        found.emplace_back(p_enemy->getType(), p_enemy->getGx(), p_enemy->getGy(), p_enemy->getHp());
    }
    std::sort(found.begin(), found.end());
    return found;
  }
  static Enemy* firstEnemy() {
    return dynamic_cast<Enemy*>(ot::WorldManager::getInstance().objectsOfType("Enemy")[0]);
  }
  // Takes the stairs by the key, as a player does, and ends the frame.
  void takeStairs() {
    p_hero->setGridPos(44, 27);
    key(ot::Keyboard::E, ot::KEY_PRESSED);
    ot_test::runFrames(1);
  }

  Hero* p_hero = nullptr;
  Spawner* p_spawner = nullptr;
};

TEST_F(FloorsTest, StairsWorkOnlyFromTheStairsTile) {
  EXPECT_FALSE(useStairs(p_hero) || useStairs(nullptr));
  EXPECT_EQ(std::make_pair(0, 23), std::make_pair(getLevel()->getFloor(), countOf("Enemy")));
}

TEST_F(FloorsTest, AReturnFindsAFloorAsItWasLeft) {
  createHud();
  firstEnemy()->takeDamage(1);
  std::vector<EnemyState> floor_one = livingEnemies();
  new Projectile(3, 2, 1, 0, 1, p_hero);
  new Slash(4, 2, 1, p_hero);

  takeStairs();
  EXPECT_EQ(std::make_tuple(1, 44, 27, 23, 0, true, size_t{23}, 2),
            std::make_tuple(getLevel()->getFloor(), p_hero->getGx(), p_hero->getGy(), countOf("Enemy"),
                            countOf("Projectile") + countOf("Slash"), g_floor_visited[1],
                            g_floor_stash[0].size(), hudValue("Floor")));
  EXPECT_TRUE(ot_test::logHas(logMessages(), "useStairs(): floor 1 -> floor 2"));

  takeStairs();
  EXPECT_EQ(0, getLevel()->getFloor());
  EXPECT_EQ(floor_one, livingEnemies());
  EXPECT_EQ(std::make_pair(size_t{0}, size_t{23}),
            std::make_pair(g_floor_stash[0].size(), g_floor_stash[1].size()));
  EXPECT_TRUE(ot_test::logHas(logMessages(), "useStairs(): floor 2 -> floor 1"));
}

TEST_F(FloorsTest, AStashedEnemyComesBackAtThePresentLevelLessItsDamage) {
  g_floor_stash[1] = {{0, 10, 3, 2}, {0, 12, 3, 5}, {1, 44, 27, 0}};
  g_floor_visited[1] = true;
  g_enemy_level = 1;
  takeStairs();
  // Damage that would kill is not dealt again; the one on the stairs is lost.
  EXPECT_EQ((std::vector<EnemyState>{{0, 10, 3, 3}, {0, 12, 3, 5}}), livingEnemies());
}

TEST_F(FloorsTest, SavingTakesEnemiesOutWithoutReward) {
  saveEnemies(0);
  EXPECT_EQ(std::make_tuple(size_t{23}, 0, size_t{0}),
            std::make_tuple(g_floor_stash[0].size(), p_hero->getGold(), livingEnemies().size()));
  restoreEnemies(0);
  EXPECT_EQ(23u, livingEnemies().size());
  removeAllOfType("Enemy");
  ot_test::runFrames(1);
  EXPECT_EQ(0, countOf("Enemy"));
  spawnInitialAll();
  EXPECT_EQ(23, countOf("Enemy"));
}

}  // namespace
