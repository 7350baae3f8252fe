#pragma once

#include "engine/core/Vector.h"
#include "engine/effects/Particle.h"
#include "engine/effects/Particles.h"

namespace ot {

class Event;

// An endless particle (snow, rain, stars) that starts anywhere in the world
// and, when it leaves it, re-enters just beyond the far edge of its travel.
// Its age stays 0 and is never counted. With wobble set it drifts a little
// each step, never by more than a quarter of its first speed.
class Precipitation : public Particle {
 public:
  Precipitation(float size, Direction direction, unsigned char opacity, unsigned char r, unsigned char g,
                unsigned char b);

  void setWobble(bool wobble = true) { m_wobble = wobble; }
  bool getWobble() const { return m_wobble; }
  Direction getDirection() const { return m_direction; }

  // Wobbles on a step (0); re-enters on an out event (1, or -1 for an unknown
  // direction or a world with no room); 0 for anything else.
  int eventHandler(const Event* p_e) override;

 private:
  Direction m_direction;
  Vector m_old_velocity;  // what the wobble is limited against
  bool m_wobble = false;
};

}  // namespace ot
