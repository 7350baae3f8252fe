#include "engine/world/Line.h"

#include <SFML/Graphics.hpp>

#include "engine/presentation/DisplayManager.h"

namespace ot {

Line::Line(Vector p1, Vector p2) : m_p1(p1), m_p2(p2) {}

void Line::draw() const {
  // Fetched for each line: that puts the characters drawn so far below it.
  sf::RenderWindow* p_window = DisplayManager::getInstance().getWindow();
  // Headless runs have no window; a debugging aid must not bring them down.
  if (!p_window) return;
  Vector half(charWidth() / 2, charHeight() / 2);
  Vector a = spacesToPixels(m_p1) + half;
  Vector b = spacesToPixels(m_p2) + half;
  sf::Vertex line[] = {sf::Vertex(sf::Vector2f(a.getX(), a.getY())),
                       sf::Vertex(sf::Vector2f(b.getX(), b.getY()))};
  p_window->draw(line, 2, sf::Lines);
}

std::string Line::toString() const { return "[" + m_p1.toString() + m_p2.toString() + "]"; }

}  // namespace ot
