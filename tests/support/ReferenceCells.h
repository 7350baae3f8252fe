#pragma once

#include <SFML/Graphics.hpp>
#include <string>

#include "engine/core/Types.h"
#include "engine/core/Vector.h"
#include "engine/presentation/DisplayManager.h"

namespace ot_test {

// Draws characters on the display's window the way drawCh did before it
// batched them: a rectangle and a one-character text, two draw calls a cell,
// set up as the display sets up its own. What it draws is the picture the
// batched cells must equal, pixel for pixel. Needs the display started with a
// window; it follows the display's shake but keeps its own background colour.
class ReferenceCells {
 public:
  ReferenceCells();

  void setBackgroundColor(ot::Color color);
  void drawCh(ot::Vector world_pos, char ch, ot::Color color, float rotation = 0.0f);
  void drawCh(ot::Vector world_pos, char ch, unsigned char r, unsigned char g, unsigned char b,
              float rotation = 0.0f);
  void drawString(ot::Vector world_pos, const std::string& str, ot::Justification just, ot::Color color);

 private:
  sf::Font m_font;
  sf::RectangleShape m_rectangle;
  sf::Text m_text;
};

}  // namespace ot_test
