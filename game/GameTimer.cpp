#include "game/GameTimer.h"

#include <cstdio>

#include "engine/core/Event.h"
#include "engine/core/EventLabels.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/core/ObjectListIterator.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/world/WorldManager.h"
#include "game/Enemy.h"
#include "game/Level.h"
#include "game/ViewText.h"

int g_enemy_level = 0;

int getEnemyLevel() { return g_enemy_level; }

int levelForTime(int seconds) {
  if (seconds < 120) return 0;
  if (seconds < 240) return 1;
  return (seconds - 240) / 60 + 2;
}

int secondsToNextLevel(int seconds) {
  if (seconds < 120) return 120 - seconds;
  if (seconds < 240) return 240 - seconds;
  return 60 - (seconds - 240) % 60;
}

std::string formatTime(int seconds) {
  char buffer[16];
  snprintf(buffer, sizeof(buffer), "%d:%02d", seconds / 60, seconds % 60);
  return buffer;
}

GameTimer::GameTimer() {
  setType("GameTimer");
  setSolidness(ot::SPECTRAL);
  setAltitude(4);
  setPosition(ot::Vector(0, 0));
  // Covers the whole world, so it is always drawn.
  setBox(mapBox());
  registerInterest(ot::STEP_EVENT);
  // Kept quirk: the first enemies were made before this, at the level as it
  // stood then; a new game starts as it always has.
  g_enemy_level = 0;
}

int GameTimer::eventHandler(const ot::Event* p_e) {
  if (p_e->getType() != ot::STEP_EVENT) return 0;
  // The clock, and the warning, stand still once the hero is gone.
  if (ot::WorldManager::getInstance().objectsOfType("Hero").isEmpty()) return 1;
  // Frames times the nominal frame time: slow frames don't disturb the clock.
  m_elapsed_ms += ot::GameManager::getInstance().getFrameTime();
  if (m_flash_timer > 0) m_flash_timer--;
  int new_level = levelForTime(m_elapsed_ms / 1000);
  if (new_level == g_enemy_level) return 1;
  g_enemy_level = new_level;
  boostEnemies();
  m_flash_timer = 90;
  ot::DisplayManager::getInstance().shake(4, 4, 6, false);
  ot::LogManager::getInstance().writeLog("GameTimer: enemies boosted to level %d", g_enemy_level);
  return 1;
}

void GameTimer::boostEnemies() {
  // Stashed enemies of the other floor get the level when they come back.
  ot::ObjectList enemies = ot::WorldManager::getInstance().objectsOfType("Enemy");
  for (ot::ObjectListIterator it(&enemies); !it.isDone(); it.next()) {
    auto* p_enemy = dynamic_cast<Enemy*>(it.currentObject());
    if (p_enemy && p_enemy->getHp() > 0) p_enemy->setLevel(g_enemy_level);
  }
}

std::string GameTimer::statusLine() const {
  int s = m_elapsed_ms / 1000;
  return "Time " + formatTime(s) + "   Enemy Lv " + std::to_string(g_enemy_level) + " (next " +
         formatTime(secondsToNextLevel(s)) + ")";
}

int GameTimer::draw() {
  ot::Box view = ot::WorldManager::getInstance().getView();
  drawViewString(ot::Vector(1, view.getVertical() - 1), statusLine(), ot::LEFT_JUSTIFIED, ot::WHITE);
  // Blinks in phases of 6 steps.
  if (m_flash_timer > 0 && (m_flash_timer / 6) % 2 == 0) {
    drawViewString(ot::Vector(view.getHorizontal() / 2.0f, 3.0f),
                   "!! ENEMIES GROW STRONGER (Lv " + std::to_string(g_enemy_level) + ") !!",
                   ot::CENTER_JUSTIFIED, ot::RED);
  }
  return 0;
}
