#pragma once

#include "engine/effects/Particle.h"

namespace ot {

class Event;

// A particle that falls slowly and lays an opaque, still trail particle at its
// position on every step, the step it dies on included. It keeps the values it
// was made with for the trail.
class Firework : public Particle {
 public:
  Firework(float size, int age, unsigned char opacity, unsigned char r, unsigned char g, unsigned char b);

  // Particle's handling, then a trail particle on a step (1).
  int eventHandler(const Event* p_e) override;

 private:
  unsigned char m_r;
  unsigned char m_g;
  unsigned char m_b;
  unsigned char m_opacity;
  int m_start_age;
  float m_start_size;
};

}  // namespace ot
