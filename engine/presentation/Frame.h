#pragma once

#include <string>

#include "engine/core/Types.h"
#include "engine/core/Vector.h"

namespace ot {

// One rectangular picture of characters: the rows joined top first, width
// times height characters. An empty string marks an empty frame. Frames are
// plain values, copied into and out of the Sprite that holds them.
class Frame {
 public:
  Frame() = default;
  // Stores the three as given: the string must hold width times height characters.
  Frame(int width, int height, std::string frame_str);

  int getWidth() const { return m_width; }
  void setWidth(int width) { m_width = width; }
  int getHeight() const { return m_height; }
  void setHeight(int height) { m_height = height; }
  std::string getString() const { return m_frame_str; }
  void setString(std::string frame_str) { m_frame_str = std::move(frame_str); }

  // The character drawn at column x, row y of the picture as mirrored by
  // transform (any value but the four counts as NONE). Both must lie inside.
  char getChar(int x, int y, Transform transform) const;
  // Draws the picture centred on position, skipping the transparency
  // character (0 for none), mirrored by transform; -1 when a character can't
  // be drawn (as when headless) or the string is shorter than its size.
  int draw(Vector position, Color color, char transparency, Transform transform) const;

 private:
  int m_width = 0;
  int m_height = 0;
  std::string m_frame_str;
};

}  // namespace ot
