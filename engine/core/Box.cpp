#include "engine/core/Box.h"

#include "engine/core/Utility.h"
#include "engine/world/Line.h"

namespace ot {

Box::Box(Vector corner, float horizontal, float vertical)
    : m_corner(corner), m_horizontal(horizontal), m_vertical(vertical) {}

bool Box::operator==(const Box& other) const {
  return m_corner == other.m_corner && m_horizontal == other.m_horizontal && m_vertical == other.m_vertical;
}

bool Box::operator!=(const Box& other) const { return !(*this == other); }

void Box::draw() const {
  Vector ul = m_corner;
  Vector ur(m_corner.getX() + m_horizontal, m_corner.getY());
  Vector ll(m_corner.getX(), m_corner.getY() + m_vertical);
  Vector lr(ur.getX(), ll.getY());
  Line(ul, ur).draw();
  Line(ul, ll).draw();
  Line(ur, lr).draw();
  Line(ll, lr).draw();
}

int Box::serialize(std::stringstream* p_ss) const {
  m_corner.serialize(p_ss);
  writeRaw(p_ss, m_horizontal);
  writeRaw(p_ss, m_vertical);
  return checkStream("Box::serialize()", p_ss);
}

int Box::deserialize(std::stringstream* p_ss) {
  m_corner.deserialize(p_ss);
  readRaw(p_ss, &m_horizontal);
  readRaw(p_ss, &m_vertical);
  return checkStream("Box::deserialize()", p_ss);
}

std::string Box::toString() const {
  return m_corner.toString() + " h: " + ot::toString(m_horizontal) + " v: " + ot::toString(m_vertical);
}

}  // namespace ot
