#include "tests/support/ReferenceCells.h"

#include "engine/core/Config.h"
#include "engine/world/Geometry.h"

namespace ot_test {

ReferenceCells::ReferenceCells() : m_rectangle(sf::Vector2f(ot::charWidth(), ot::charHeight())) {
  m_font.loadFromFile(ot::Config::getInstance().getFontFile());
  m_text = sf::Text("", m_font, 30);
  m_text.setStyle(sf::Text::Bold);
  m_text.setCharacterSize(ot::DisplayManager::getInstance().cellFontSize());
  setBackgroundColor(ot::Config::getInstance().getWindowBackgroundColor());
}

void ReferenceCells::setBackgroundColor(ot::Color color) { m_rectangle.setFillColor(ot::colorToSFML(color)); }

void ReferenceCells::drawCh(ot::Vector world_pos, char ch, ot::Color color, float rotation) {
  unsigned char r = 255, g = 255, b = 255;
  ot::colorToRGB(color, r, g, b);
  drawCh(world_pos, ch, r, g, b, rotation);
}

void ReferenceCells::drawCh(ot::Vector world_pos, char ch, unsigned char r, unsigned char g, unsigned char b,
                            float rotation) {
  ot::DisplayManager& display = ot::DisplayManager::getInstance();
  sf::RenderWindow& window = *display.getWindow();
  ot::Vector pixel_pos = ot::spacesToPixels(ot::worldToView(world_pos));
  m_rectangle.setPosition(pixel_pos.getX() - ot::charWidth() / 10, pixel_pos.getY() + ot::charHeight() / 5);
  m_rectangle.setRotation(rotation);
  window.draw(m_rectangle, sf::RenderStates::Default);
  m_text.setString(sf::String(std::string(1, ch)));
  m_text.setPosition(pixel_pos.getX() + static_cast<float>(display.getShakeOffsetX()),
                     pixel_pos.getY() + static_cast<float>(display.getShakeOffsetY()));
  m_text.setFillColor(sf::Color(r, g, b, 255));
  m_text.setRotation(rotation);
  window.draw(m_text, sf::RenderStates::Default);
}

void ReferenceCells::drawString(ot::Vector world_pos, const std::string& str, ot::Justification just,
                                ot::Color color) {
  float x = world_pos.getX();
  int length = static_cast<int>(str.size());
  if (just == ot::CENTER_JUSTIFIED) x -= static_cast<float>(length / 2);
  if (just == ot::RIGHT_JUSTIFIED) x -= static_cast<float>(length);
  for (int i = 0; i < length; i++)
    drawCh(ot::Vector(x + static_cast<float>(i), world_pos.getY()), str[i], color);
}

}  // namespace ot_test
