#include "engine/world/Circle.h"

#include "engine/core/Utility.h"

namespace ot {

Circle::Circle(Vector center, float radius) : m_center(center), m_radius(radius) {}

std::string Circle::toString() const { return m_center.toString() + " r: " + ot::toString(m_radius); }

}  // namespace ot
