#pragma once

#include "engine/world/Object.h"

// A creature: an Object with a tile position and hit points, that steps from
// tile to tile. A step is decided on tiles, against the Level and the other
// creatures, and only then does the object jump to the tile's centre through
// the world; so it never stands between tiles. SOFT, so the engine's own
// collisions never refuse the jump. Hero and Enemy derive from it.
class GridEntity : public ot::Object {
 public:
  GridEntity();

  // Takes the blow; true when it killed. A dead creature can't die twice.
  virtual bool takeDamage(int damage);
  // Marks the creature for deletion.
  virtual void onDeath();

  int getGx() const { return m_gx; }
  int getGy() const { return m_gy; }
  int getHp() const { return m_hp; }
  int getMaxHp() const { return m_max_hp; }

  // May this creature step onto the tile: walkable, and no living creature there.
  bool canMoveTo(int x, int y);
  // One step by (dx, dy); false, with nothing moved, when it can't be made.
  bool tryMove(int dx, int dy);
  // Jumps to the tile without any test.
  void setGridPos(int x, int y);
  // Adds hit points, up to the maximum.
  void heal(int amount);
  // Lowers the hit points too when they lie above the new maximum.
  void setMaxHp(int max_hp);

 protected:
  int m_gx = 0;
  int m_gy = 0;
  int m_hp = 1;
  int m_max_hp = 1;
};

// The living creature on a tile other than skip, or null. A linear scan of
// the world; a creature with no hit points left no longer holds its tile.
GridEntity* unitAt(int x, int y, const ot::Object* skip);
