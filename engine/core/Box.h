#pragma once

#include <sstream>
#include <string>

#include "engine/core/Vector.h"

namespace ot {

// An axis-aligned rectangle: upper-left corner and two float sides. An
// object's box is relative to its position; a one-cell box has sides of 0.99
// so that it doesn't touch the next cell.
class Box {
 public:
  Box() = default;
  Box(Vector corner, float horizontal, float vertical);

  Vector getCorner() const { return m_corner; }
  void setCorner(Vector corner) { m_corner = corner; }
  float getHorizontal() const { return m_horizontal; }
  void setHorizontal(float horizontal) { m_horizontal = horizontal; }
  float getVertical() const { return m_vertical; }
  void setVertical(float vertical) { m_vertical = vertical; }

  bool operator==(const Box& other) const;
  bool operator!=(const Box& other) const;

  // Corner, horizontal, vertical: 16 bytes; the result of checkStream.
  int serialize(std::stringstream* p_ss) const;
  int deserialize(std::stringstream* p_ss);

  // Draws the outline straight into the window, for debugging.
  void draw() const;

  // "(x,y) h: w v: h".
  std::string toString() const;

 private:
  Vector m_corner;
  float m_horizontal = 0.0f;
  float m_vertical = 0.0f;
};

}  // namespace ot
