#include "engine/presentation/Frame.h"

#include "engine/core/LogManager.h"
#include "engine/presentation/DisplayManager.h"

namespace ot {

Frame::Frame(int width, int height, std::string frame_str)
    : m_width(width), m_height(height), m_frame_str(std::move(frame_str)) {}

char Frame::getChar(int x, int y, Transform transform) const {
  // Mirroring moves characters and doesn't replace them: a slash stays a slash.
  int source_row = (transform == VERTICAL || transform == BOTH) ? m_height - 1 - y : y;
  int source_col = (transform == HORIZONTAL || transform == BOTH) ? m_width - 1 - x : x;
  return m_frame_str[static_cast<size_t>(source_row) * static_cast<size_t>(m_width) +
                     static_cast<size_t>(source_col)];
}

int Frame::draw(Vector position, Color color, char transparency, Transform transform) const {
  if (m_frame_str.empty()) return 0;
  // The loaders make size and string agree; anything else would read past the text.
  if (m_width < 0 || m_height < 0 ||
      static_cast<long>(m_frame_str.size()) < static_cast<long>(m_width) * m_height) {
    LogManager::getInstance().writeLog("Frame::draw(): Error! %d x %d frame holds only %d characters.",
                                       m_width, m_height, static_cast<int>(m_frame_str.size()));
    return -1;
  }
  // The middle cell stands on position; an even size lands on half spaces.
  float x_offset = static_cast<float>(m_width - 1) / 2;
  float y_offset = static_cast<float>(m_height - 1) / 2;
  const DisplayManager& display = DisplayManager::getInstance();
  for (int y = 0; y < m_height; y++) {
    for (int x = 0; x < m_width; x++) {
      char ch = getChar(x, y, transform);
      // A skipped character draws no rectangle either, so what lies below stays.
      if (transparency != 0 && ch == transparency) continue;
      Vector at(position.getX() + static_cast<float>(x) - x_offset,
                position.getY() + static_cast<float>(y) - y_offset);
      if (display.drawCh(at, ch, color, 0) != 0) return -1;
    }
  }
  return 0;
}

}  // namespace ot
