#include "game/Floors.h"

#include "engine/core/EventView.h"
#include "engine/core/LogManager.h"
#include "engine/core/ObjectListIterator.h"
#include "engine/effects/Particles.h"
#include "engine/world/WorldManager.h"
#include "game/Enemy.h"
#include "game/Hero.h"
#include "game/Level.h"
#include "game/Spawner.h"

bool g_floor_visited[2] = {true, false};
std::vector<SavedEnemy> g_floor_stash[2];

bool useStairs(Hero* p_hero) {
  Level* p_level = getLevel();
  if (!p_level || !p_hero) return false;
  if (p_level->tileAt(p_hero->getGx(), p_hero->getGy()) != TILE_STAIRS) return false;
  int from = p_level->getFloor();
  int to = (from + 1) % 2;
  saveEnemies(from);
  // Attacks in flight don't survive the change.
  removeAllOfType("Projectile");
  removeAllOfType("Slash");
  p_level->setFloor(to);
  p_hero->setGridPos(p_level->getStairsX(to), p_level->getStairsY(to));
  if (g_floor_visited[to]) {
    restoreEnemies(to);
  } else {
    g_floor_visited[to] = true;
    spawnInitialAll();
  }
  ot::addParticles(ot::SPARKS, p_hero->getPosition(), 1.0f, ot::WHITE);
  // Players count floors from 1.
  ot::EventView floor_view("Floor", to + 1, false);
  ot::WorldManager::getInstance().onEvent(&floor_view);
  ot::LogManager::getInstance().writeLog("useStairs(): floor %d -> floor %d", from + 1, to + 1);
  return true;
}

void saveEnemies(int floor) {
  g_floor_stash[floor].clear();
  ot::ObjectList enemies = ot::WorldManager::getInstance().objectsOfType("Enemy");
  for (ot::ObjectListIterator it(&enemies); !it.isDone(); it.next()) {
    auto* p_enemy = dynamic_cast<Enemy*>(it.currentObject());
    if (!p_enemy || p_enemy->getHp() <= 0) continue;
    g_floor_stash[floor].push_back(
        {p_enemy->getType(), p_enemy->getGx(), p_enemy->getGy(), p_enemy->getMaxHp() - p_enemy->getHp()});
    p_enemy->removeSilently();
  }
}

void restoreEnemies(int floor) {
  // A record whose tile is taken is dropped: that enemy is gone.
  for (const SavedEnemy& saved : g_floor_stash[floor]) {
    if (unitAt(saved.x, saved.y, nullptr)) continue;
    auto* p_enemy = new Enemy(saved.type, saved.x, saved.y);
    // Only damage that can't kill is dealt again, so a restored enemy lives.
    if (saved.damage_taken > 0 && saved.damage_taken < p_enemy->getMaxHp())
      p_enemy->takeDamage(saved.damage_taken);
  }
  g_floor_stash[floor].clear();
}

void removeAllOfType(const std::string& type) {
  ot::WorldManager& world = ot::WorldManager::getInstance();
  world.markForDelete(world.objectsOfType(type));
}

void spawnInitialAll() {
  ot::ObjectList spawners = ot::WorldManager::getInstance().objectsOfType("Spawner");
  if (spawners.isEmpty()) return;
  if (auto* p_spawner = dynamic_cast<Spawner*>(spawners[0])) p_spawner->spawnInitial();
}
