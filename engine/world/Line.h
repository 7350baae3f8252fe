#pragma once

#include <string>

#include "engine/core/Vector.h"

namespace ot {

// A segment between two points in spaces.
class Line {
 public:
  Line() = default;
  Line(Vector p1, Vector p2);

  Vector getP1() const { return m_p1; }
  void setP1(Vector p1) { m_p1 = p1; }
  Vector getP2() const { return m_p2; }
  void setP2(Vector p2) { m_p2 = p2; }

  // Draws the segment between the middles of its two cells, straight into the
  // window and without view conversion: a debugging aid.
  void draw() const;

  // "[(x1,y1)(x2,y2)]".
  std::string toString() const;

 private:
  Vector m_p1;
  Vector m_p2;
};

}  // namespace ot
