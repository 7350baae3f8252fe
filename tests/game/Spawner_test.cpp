#include "game/Spawner.h"

#include <cstdlib>
#include <map>
#include <tuple>

#include "engine/core/ObjectListIterator.h"
#include "engine/world/WorldManager.h"
#include "game/game.h"
#include "tests/support/GameWorld.h"

namespace {

class SpawnerTest : public ot_test::GameWorld {
 protected:
  static std::map<int, int> enemiesByType() {
    std::map<int, int> found;
    ot::ObjectList enemies = ot::WorldManager::getInstance().objectsOfType("Enemy");
    for (ot::ObjectListIterator it(&enemies); !it.isDone(); it.next())
      found[dynamic_cast<Enemy*>(it.currentObject())->getType()]++;
    return found;
  }
};

TEST_F(SpawnerTest, FillsEveryFreeSpawnPointOfTheCurrentFloor) {
  makeLevel();
  auto* p_spawner = new Spawner;
  EXPECT_FALSE(p_spawner->isVisible());
  p_spawner->spawnInitial();
  EXPECT_EQ((std::map<int, int>{{0, 12}, {1, 8}, {2, 3}}), enemiesByType());
  ot::WorldManager::getInstance().markForDelete(ot::WorldManager::getInstance().objectsOfType("Enemy"));
  ot_test::runFrames(1);

  getLevel()->setFloor(1);
  const SpawnPoint& first = getLevel()->getSpawnPoints()[0];
  creatureAt(first.x, first.y, 1);
  p_spawner->spawnInitial();
  EXPECT_EQ(22, countOf("Enemy"));
}

TEST_F(SpawnerTest, SpawnTurnsComeFasterByTwoStepsUntilThirty) {
  makeLevel();
  auto* p_spawner = new Spawner;
  step(89);
  EXPECT_EQ(0, p_spawner->getSpawnCount());
  step(1);
  EXPECT_EQ(std::make_tuple(1, 88, 1),  // no hero: every point is far enough
            std::make_tuple(p_spawner->getSpawnCount(), p_spawner->getSpawnCountdown(), countOf("Enemy")));
  for (int turn = 2; turn <= 31; turn++) {
    int countdown = p_spawner->getSpawnCountdown();
    step(countdown);
    EXPECT_EQ(std::make_pair(turn, turn >= 30 ? 30 : 90 - 2 * turn),
              std::make_pair(p_spawner->getSpawnCount(), p_spawner->getSpawnCountdown()));
  }
}

TEST_F(SpawnerTest, NoSpawnWithEighteenEnemiesUntilOneIsGone) {
  makeLevel();
  auto* p_spawner = new Spawner;
  for (int i = 0; i < 18; i++) new Enemy(0, 1 + i, 26);
  p_spawner->spawnOne();
  EXPECT_EQ(18, countOf("Enemy"));
  auto* p_victim = dynamic_cast<Enemy*>(ot::WorldManager::getInstance().objectsOfType("Enemy")[0]);
  p_victim->takeDamage(3);
  p_spawner->spawnOne();
  EXPECT_EQ(18, countOf("Enemy"));  // still in the world until the frame's end
  ot_test::runFrames(1);
  ASSERT_EQ(17, countOf("Enemy"));
  p_spawner->spawnOne();
  EXPECT_EQ(18, countOf("Enemy"));
}

TEST_F(SpawnerTest, SpawnsOnlyFarFromTheHero) {
  Hero* p_hero = makeHero();
  auto* p_spawner = new Spawner;
  srand(5);
  for (int i = 0; i < 40; i++) {
    p_spawner->spawnOne();
    ot::ObjectList enemies = ot::WorldManager::getInstance().objectsOfType("Enemy");
    for (ot::ObjectListIterator it(&enemies); !it.isDone(); it.next()) {
      auto* p_enemy = dynamic_cast<Enemy*>(it.currentObject());
      EXPECT_GE(std::abs(p_enemy->getGx() - p_hero->getGx()) + std::abs(p_enemy->getGy() - p_hero->getGy()),
                8);
    }
    ot::WorldManager::getInstance().markForDelete(enemies);
    ot_test::runFrames(1);
  }
}

TEST_F(SpawnerTest, WithoutALevelNothingSpawns) {
  auto* p_spawner = new Spawner;
  p_spawner->spawnInitial();
  p_spawner->spawnOne();
  EXPECT_EQ(0, countOf("Enemy"));
}

}  // namespace
