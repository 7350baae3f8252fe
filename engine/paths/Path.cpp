#include "engine/paths/Path.h"

#include "engine/presentation/DisplayManager.h"

namespace ot {

void Path::clear() {
  m_points.clear();
  m_index = 0;
}

bool Path::isDone() const { return static_cast<unsigned int>(m_index) >= m_points.size(); }

Vector Path::getCurrent() const { return isDone() ? Vector() : m_points[m_index]; }

Vector Path::getPrevious() const {
  if (m_index < 1 || static_cast<size_t>(m_index) > m_points.size()) return Vector();
  return m_points[m_index - 1];
}

Vector Path::getLast() const { return m_points.back(); }

int Path::setIndex(int index) {
  if (m_index < 0 || isDone()) return -1;
  m_index = index;
  return 0;
}

Path Path::operator++(int) {
  Path before(*this);
  m_index++;
  if (static_cast<size_t>(m_index) >= m_points.size()) m_index = size();
  return before;
}

bool Path::operator==(const Path& other) const {
  return m_points == other.m_points && m_index == other.m_index;
}

bool Path::operator!=(const Path& other) const { return !(*this == other); }

int Path::draw(Color color) const {
  int result = 0;
  for (size_t i = m_index < 0 ? 0 : static_cast<size_t>(m_index); i < m_points.size(); i++) {
    result += DisplayManager::getInstance().drawCh(m_points[i], '.', color, 0);
  }
  return result;
}

std::string Path::toString() const {
  std::string text;
  for (const Vector& point : m_points) text += point.toString() + "|";
  return text;
}

}  // namespace ot
