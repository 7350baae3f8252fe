#pragma once

#include "engine/world/Object.h"

class GridEntity;

// A sword blow: strikes the creature on its tile once, when made, then stays
// on screen for 6 steps. Owned by the world.
class Slash : public ot::Object {
 public:
  Slash(int x, int y, int damage, GridEntity* p_owner);
  ~Slash() override = default;

  // Counts its life down on step events (1); 0 otherwise.
  int eventHandler(const ot::Event* p_e) override;

  int getLifetime() const { return m_lifetime; }

 private:
  int m_lifetime = 6;  // steps
};
