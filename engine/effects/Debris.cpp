#include "engine/effects/Debris.h"

#include "engine/presentation/DisplayManager.h"
#include "engine/presentation/Shape.h"

namespace ot {

Debris::Debris(int age, unsigned char opacity, Color color, Vector velocity, char ch, float rotation_speed)
    : Particle(1.0f, age, opacity, color), m_ch(ch), m_color(color), m_rotation_speed(rotation_speed) {
  setType("Debris");
  setVelocity(velocity);
  Shape shape = getShape();
  shape.setType(SHAPE_UNDEFINED);
  setShape(shape);
}

int Debris::draw() {
  // Kept quirk: one correction each way only, so a speed beyond 360 a frame
  // leaves the range; only the drawn angle sees it.
  m_rotation += m_rotation_speed;
  if (m_rotation < 0.0f) m_rotation += 360.0f;
  if (m_rotation > 360.0f) m_rotation -= 360.0f;
  return DisplayManager::getInstance().drawCh(getPosition(), m_ch, m_color, m_rotation);
}

}  // namespace ot
