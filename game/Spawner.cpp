#include "game/Spawner.h"

#include <algorithm>
#include <cstdlib>

#include "engine/core/Event.h"
#include "engine/core/EventLabels.h"
#include "engine/world/WorldManager.h"
#include "game/Enemy.h"
#include "game/Hero.h"
#include "game/Level.h"

namespace {

constexpr int MAX_ENEMIES = 18;  // on the present floor
constexpr int MIN_DISTANCE = 8;  // tiles from the hero
constexpr int TRIES = 10;

}  // namespace

Spawner::Spawner() {
  setType("Spawner");
  setSolidness(ot::SPECTRAL);
  setVisible(false);
  registerInterest(ot::STEP_EVENT);
}

int Spawner::eventHandler(const ot::Event* p_e) {
  if (p_e->getType() != ot::STEP_EVENT) return 0;
  if (--m_spawn_countdown > 0) return 1;
  m_spawn_count += 1;
  // The period falls by 2 steps a turn, from 88 to 30.
  m_spawn_countdown = std::max(30, 90 - 2 * m_spawn_count);
  spawnOne();
  return 1;
}

void Spawner::spawnInitial() {
  Level* p_level = getLevel();
  if (!p_level) return;
  for (const SpawnPoint& point : p_level->getSpawnPoints()) {
    if (!unitAt(point.x, point.y, nullptr)) new Enemy(point.type, point.x, point.y);
  }
}

void Spawner::spawnOne() {
  Level* p_level = getLevel();
  if (!p_level) return;
  // Only the present floor's enemies are in the world; the others are stashed.
  if (ot::WorldManager::getInstance().objectsOfType("Enemy").getCount() >= MAX_ENEMIES) return;
  // With no hero, every point is far enough.
  int hero_x = -100;
  int hero_y = -100;
  if (Hero* p_hero = findHero()) {
    hero_x = p_hero->getGx();
    hero_y = p_hero->getGy();
  }
  const std::vector<SpawnPoint>& points = p_level->getSpawnPoints();
  if (points.empty()) return;
  for (int i = 0; i < TRIES; i++) {
    const SpawnPoint& p = points[static_cast<size_t>(rand() % static_cast<int>(points.size()))];
    if (std::abs(p.x - hero_x) + std::abs(p.y - hero_y) >= MIN_DISTANCE && !unitAt(p.x, p.y, nullptr)) {
      new Enemy(p.type, p.x, p.y);
      return;
    }
  }
}
