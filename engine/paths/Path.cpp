#include "engine/paths/Path.h"

#include <cstdint>

#include "engine/core/Utility.h"
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

int Path::serialize(std::stringstream* p_ss) const {
  writeRaw(p_ss, static_cast<std::uint64_t>(m_points.size()));
  for (const Vector& point : m_points) point.serialize(p_ss);
  return checkStream("Path::serialize()", p_ss);
}

int Path::deserialize(std::stringstream* p_ss) {
  std::uint64_t count = 0;
  readRaw(p_ss, &count);
  m_points.clear();
  // A garbled count ends with the stream rather than running on.
  for (std::int32_t i = 0; static_cast<std::uint64_t>(i) < count && *p_ss; i++) {
    Vector point;
    point.deserialize(p_ss);
    if (*p_ss) m_points.push_back(point);
  }
  return checkStream("Path::deserialize()", p_ss);
}

std::string Path::toString() const {
  std::string text;
  for (const Vector& point : m_points) text += point.toString() + "|";
  return text;
}

}  // namespace ot
