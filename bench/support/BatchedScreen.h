#pragma once

#include <SFML/Graphics.hpp>

#include "engine/core/Config.h"
#include "engine/presentation/DisplayManager.h"

namespace ot_bench {

// A full screen of 80 by 24 characters of mixed text and colours, laid out as
// drawCh lays cells out, but batched by hand into two vertex arrays: the
// background quads, and the glyph quads textured from the font's page. The
// floor of what SFML can do here, for the drawing benchmarks to stand beside.
class BatchedScreen {
 public:
  static constexpr int COLS = 80;
  static constexpr int ROWS = 24;

  BatchedScreen() : m_backs(sf::Quads, COLS * ROWS * 4), m_glyphs(sf::Quads, COLS * ROWS * 4) {
    m_font.loadFromFile(ot::Config::getInstance().getFontFile());
  }

  static char cellChar(int x, int y) { return TEXT[(x + 7 * y) % (sizeof(TEXT) - 1)]; }
  static ot::Color cellColor(int x, int y) { return static_cast<ot::Color>(1 + (x + y) % 7); }

  // Lays the screen out afresh and draws it: rectangle from (-w/10, h/5) of a
  // cell's corner, glyph on a baseline one character size below the corner.
  void draw() {
    ot::DisplayManager& display = ot::DisplayManager::getInstance();
    const unsigned int size = display.cellFontSize();
    const float w = ot::charWidth(), h = ot::charHeight();
    const sf::Color back_color = ot::colorToSFML(ot::Config::getInstance().getWindowBackgroundColor());
    for (int y = 0; y < ROWS; y++) {
      for (int x = 0; x < COLS; x++) {
        size_t i = static_cast<size_t>(y * COLS + x) * 4;
        float px = static_cast<float>(x) * w, py = static_cast<float>(y) * h;
        float left = px - w / 10, top = py + h / 5;
        sf::Vertex* back = &m_backs[i];
        back[0] = sf::Vertex({left, top}, back_color);
        back[1] = sf::Vertex({left + w, top}, back_color);
        back[2] = sf::Vertex({left + w, top + h}, back_color);
        back[3] = sf::Vertex({left, top + h}, back_color);

        const sf::Glyph& glyph = m_font.getGlyph(static_cast<sf::Uint32>(cellChar(x, y)), size, true);
        sf::Color color = ot::colorToSFML(cellColor(x, y));
        float gx = px + glyph.bounds.left, gy = py + static_cast<float>(size) + glyph.bounds.top;
        float gw = glyph.bounds.width, gh = glyph.bounds.height;
        float u = static_cast<float>(glyph.textureRect.left), v = static_cast<float>(glyph.textureRect.top);
        float uw = static_cast<float>(glyph.textureRect.width),
              vh = static_cast<float>(glyph.textureRect.height);
        sf::Vertex* quad = &m_glyphs[i];
        quad[0] = sf::Vertex({gx, gy}, color, {u, v});
        quad[1] = sf::Vertex({gx + gw, gy}, color, {u + uw, v});
        quad[2] = sf::Vertex({gx + gw, gy + gh}, color, {u + uw, v + vh});
        quad[3] = sf::Vertex({gx, gy + gh}, color, {u, v + vh});
      }
    }
    sf::RenderWindow& window = *display.getWindow();
    window.draw(m_backs);
    window.draw(m_glyphs, &m_font.getTexture(size));
  }

 private:
  static constexpr char TEXT[] =
      "The quick brown fox jumps over the lazy dog. 0123456789 #@$%&*+=-|/\\<>[]{}";

  sf::Font m_font;
  sf::VertexArray m_backs;
  sf::VertexArray m_glyphs;
};

}  // namespace ot_bench
