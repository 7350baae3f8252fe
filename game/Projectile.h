#pragma once

#include "engine/world/Object.h"

class GridEntity;

// The hero's arrow: flies from tile to tile, one tile every 2 steps, and ends
// at a wall or closed door, on the first creature it meets (not its owner),
// or after 10 tiles. Hits are decided on tiles, so it is SPECTRAL to the
// engine. Owned by the world.
class Projectile : public ot::Object {
 public:
  // Starts on the shooter's tile, untested; the first move is on the next step.
  Projectile(int x, int y, int dx, int dy, int damage, GridEntity* p_owner);
  ~Projectile() override = default;

  // Moves on step events (1); 0 otherwise.
  int eventHandler(const ot::Event* p_e) override;

  int getGx() const { return m_gx; }
  int getGy() const { return m_gy; }
  int getRange() const { return m_range; }

 private:
  void advance();

  int m_gx;
  int m_gy;
  int m_dx;
  int m_dy;
  int m_damage;
  int m_range = 10;  // tiles left
  int m_move_countdown = 1;
  GridEntity* m_owner;  // only compared, never dereferenced: it may be gone
};
