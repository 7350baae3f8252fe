#include "engine/presentation/Frame.h"

#include "engine/presentation/DisplayManager.h"

namespace ot {

Frame::Frame(int width, int height, std::string frame_str)
    : m_width(width), m_height(height), m_frame_str(std::move(frame_str)) {}

int Frame::draw(Vector position, Color color, char transparency, Transform transform) const {
  if (m_frame_str.empty()) return 0;
  // The middle cell stands on position; an even size lands on half spaces.
  float x_offset = static_cast<float>(m_width - 1) / 2;
  float y_offset = static_cast<float>(m_height - 1) / 2;
  bool flip_rows = (transform == VERTICAL || transform == BOTH);
  bool flip_cols = (transform == HORIZONTAL || transform == BOTH);
  const DisplayManager& display = DisplayManager::getInstance();
  for (int y = 0; y < m_height; y++) {
    int source_row = flip_rows ? m_height - 1 - y : y;
    for (int x = 0; x < m_width; x++) {
      int source_col = flip_cols ? m_width - 1 - x : x;
      char ch = m_frame_str[source_row * m_width + source_col];
      if (transparency != 0 && ch == transparency) continue;
      Vector at(position.getX() + x - x_offset, position.getY() + y - y_offset);
      if (display.drawCh(at, ch, color, 0) != 0) return -1;
    }
  }
  return 0;
}

}  // namespace ot
