#pragma once

#include <string>

#include "engine/world/Object.h"

// The run's enemy level: 0 at the start, raised by the GameTimer; every new
// Enemy takes it.
extern int g_enemy_level;
int getEnemyLevel();

// The enemy level a play time in seconds earns: up at 2:00, 4:00, then every minute.
int levelForTime(int seconds);
int secondsToNextLevel(int seconds);
// "m:ss".
std::string formatTime(int seconds);

// The pressure of a run: counts play time in frames, raises the enemy level
// at its marks, strengthens the living enemies, and shows the time and a
// warning. Its clock stops once the hero is gone. Owned by the world.
class GameTimer : public ot::Object {
 public:
  // Sets the enemy level to 0.
  GameTimer();
  ~GameTimer() override = default;

  // Counts on step events (1); 0 otherwise.
  int eventHandler(const ot::Event* p_e) override;
  // The status line and, blinking, the warning; always 0.
  int draw() override;

  // "Time m:ss   Enemy Lv n (next m:ss)", the line drawn at the lower left.
  std::string statusLine() const;
  // Raises every living enemy to the present level.
  void boostEnemies();
  int getElapsedMs() const { return m_elapsed_ms; }
  int getFlashTimer() const { return m_flash_timer; }

 private:
  int m_elapsed_ms = 0;
  int m_flash_timer = 0;  // steps the warning still shows
};
