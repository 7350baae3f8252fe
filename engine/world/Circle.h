#pragma once

#include <string>

#include "engine/core/Vector.h"

namespace ot {

// A circle in spaces.
class Circle {
 public:
  Circle() = default;
  Circle(Vector center, float radius);

  Vector getCenter() const { return m_center; }
  void setCenter(Vector center) { m_center = center; }
  float getRadius() const { return m_radius; }
  void setRadius(float radius) { m_radius = radius; }

  // "(x,y) r: radius".
  std::string toString() const;

 private:
  Vector m_center;
  float m_radius = 0.0f;
};

}  // namespace ot
