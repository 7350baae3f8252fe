#pragma once

#include "engine/core/Types.h"
#include "engine/core/Vector.h"
#include "engine/effects/Particle.h"

namespace ot {

// One character of an exploded sprite, flying and spinning until its age runs
// out. It has no shape: only the character is drawn, so its opacity shows
// nothing.
class Debris : public Particle {
 public:
  Debris(int age, unsigned char opacity, Color color, Vector velocity, char ch, float rotation_speed);

  // Turns by the rotation speed, then draws the character; the DisplayManager's
  // result (-1 when headless).
  int draw() override;

  float getRotation() const { return m_rotation; }
  float getRotationSpeed() const { return m_rotation_speed; }
  char getCh() const { return m_ch; }
  Color getColor() const { return m_color; }

 private:
  char m_ch;
  Color m_color;
  float m_rotation_speed;   // degrees per drawn frame
  float m_rotation = 0.0f;  // degrees
};

}  // namespace ot
