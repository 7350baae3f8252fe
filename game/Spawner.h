#pragma once

#include "engine/world/Object.h"

// An invisible object that fills the current floor's spawn points and then
// keeps adding enemies away from the hero, ever faster, up to a cap. One for
// the run, owned by the world; it goes on after the hero's death.
class Spawner : public ot::Object {
 public:
  Spawner();
  ~Spawner() override = default;

  // Counts down to the next spawn turn on step events (1); 0 otherwise.
  int eventHandler(const ot::Event* p_e) override;

  // One enemy on each free spawn point of the current floor.
  void spawnInitial();
  // One spawn attempt: a free point far enough from the hero, under the cap.
  void spawnOne();

  int getSpawnCountdown() const { return m_spawn_countdown; }
  int getSpawnCount() const { return m_spawn_count; }

 private:
  int m_spawn_countdown = 90;  // steps
  int m_spawn_count = 0;       // turns so far
};
