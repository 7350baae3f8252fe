#include "engine/effects/Firework.h"

#include <new>

#include "engine/core/Event.h"
#include "engine/core/EventLabels.h"
#include "engine/core/LogManager.h"

namespace ot {

Firework::Firework(float size, int age, unsigned char opacity, unsigned char r, unsigned char g,
                   unsigned char b)
    : Particle(size, age, opacity, r, g, b),
      m_r(r),
      m_g(g),
      m_b(b),
      m_opacity(opacity),
      m_start_age(age),
      m_start_size(size) {
  setType("Firework");
  setAcceleration(Vector(0.0f, 0.01f));
}

int Firework::eventHandler(const Event* p_e) {
  int result = Particle::eventHandler(p_e);
  if (p_e->getType() == STEP_EVENT) {
    // Laid even on the step that marks the firework itself; opaque and still.
    Particle* p_trail = new (std::nothrow) Particle(m_start_size / 2.0f, m_start_age / 4, 255, m_r, m_g, m_b);
    if (!p_trail) {
      LogManager::getInstance().writeLog("Firework::eventHandler(): Error! Unable to create trail Particle.");
      return -1;
    }
    p_trail->setPosition(getPosition());
    result = 1;
  }
  return result;
}

}  // namespace ot
