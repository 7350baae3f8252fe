#include "engine/presentation/Shape.h"

#include <SFML/Graphics.hpp>
#include <algorithm>
#include <cstdio>

#include "engine/core/Config.h"
#include "engine/core/LogManager.h"
#include "engine/core/Utility.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/world/Geometry.h"

namespace ot {

namespace {

// The smaller cell side in whole pixels; 0 before the display has a geometry,
// when the sides are not numbers.
int smallerCellSide() {
  float side = std::min(charWidth(), charHeight());
  if (!(side >= 0.0f && side < 1.0e6f)) return 0;
  return static_cast<int>(side);
}

}  // namespace

Shape::Shape() : m_size(static_cast<float>(smallerCellSide()) * Config::getInstance().getFontScale()) {}

void Shape::setColor(unsigned char r, unsigned char g, unsigned char b) {
  m_r = r;
  m_g = g;
  m_b = b;
  m_color = CUSTOM;
}

void Shape::setType(int type) {
  if (type < SHAPE_UNDEFINED || type > SHAPE_TRIANGLE) {
    LogManager::getInstance().writeLog("Shape::setType(): Unknown shape type %d. Ignoring.", type);
    return;
  }
  m_type = static_cast<ShapeType>(type);
}

bool Shape::operator==(const Shape& other) const {
  if (m_color != other.m_color || m_type != other.m_type || m_size != other.m_size) return false;
  if (m_color != CUSTOM) return true;
  return m_r == other.m_r && m_g == other.m_g && m_b == other.m_b;
}

bool Shape::operator!=(const Shape& other) const { return !(*this == other); }

int Shape::getPointCount() const {
  switch (m_type) {
    case SHAPE_CIRCLE:
      // A few points are enough at a particle's size.
      if (!(m_size >= 3.0f)) return 3;  // also for a size that is not a number
      if (m_size > 10.0f) return 10;
      return static_cast<int>(m_size);
    case SHAPE_SQUARE: return 4;
    case SHAPE_TRIANGLE: return 3;
    default: return 0;
  }
}

void Shape::draw(Vector world_position) {
  // Fetched for each shape: that puts the characters drawn so far below it.
  sf::RenderWindow* p_window = DisplayManager::getInstance().getWindow();
  if (!p_window) {
    LogManager::getInstance().writeLog(LOG_DETAIL, "Shape::draw(): DisplayManager window not defined.");
    return;
  }
  Vector pixels = spacesToPixels(worldToView(world_position));
  float px = pixels.getX(), py = pixels.getY();

  // One figure serves every shape, so that drawing allocates nothing.
  // Kept quirk: its rotation, once a square has set it, stays for all later
  // shapes; pictures made with shapes look as they always did.
  static sf::CircleShape figure(0, 30);
  if (m_color != CUSTOM) colorToRGB(m_color, m_r, m_g, m_b);
  figure.setFillColor(sf::Color(m_r, m_g, m_b, m_opacity));
  switch (m_type) {
    case SHAPE_CIRCLE:
      // Kept quirk: a radius of the size against an offset of half of it, as
      // games place their circles by it.
      figure.setPointCount(static_cast<size_t>(getPointCount()));
      figure.setRadius(m_size);
      figure.setPosition(px - m_size / 2.0f, py - m_size / 2.0f);
      break;
    case SHAPE_SQUARE:
      // Kept quirk: the first radius is overwritten at once; the square's size
      // is the second.
      figure.setPointCount(4);
      figure.setRadius(m_size / 2.0f);
      figure.setRadius(m_size / Config::getInstance().getFontScale());
      figure.setRotation(45);
      figure.setPosition(px + m_size / 2.0f, py - m_size / 1.75f);
      break;
    case SHAPE_TRIANGLE:
      figure.setPointCount(3);
      figure.setRadius(m_size / 2.0f);
      figure.setPosition(px - m_size / 2.0f, py - m_size / 2.0f);
      break;
    default: return;
  }
  LogManager::getInstance().writeLog(LOG_TRACE, "Shape::draw(): Drawing at (%.2f, %.2f)", px, py);
  p_window->draw(figure, sf::RenderStates::Default);
}

int Shape::serialize(std::stringstream* p_ss) const {
  writeRaw(p_ss, m_type);
  writeRaw(p_ss, m_size);
  writeRaw(p_ss, m_color);
  writeRaw(p_ss, m_opacity);
  return checkStream("Shape::serialize()", p_ss);
}

int Shape::deserialize(std::stringstream* p_ss) {
  readRaw(p_ss, &m_type);
  readRaw(p_ss, &m_size);
  readRaw(p_ss, &m_color);
  readRaw(p_ss, &m_opacity);
  return checkStream("Shape::deserialize()", p_ss);
}

std::string Shape::toString() const {
  const char* type = "undefined";
  if (m_type == SHAPE_CIRCLE) type = "circle";
  if (m_type == SHAPE_SQUARE) type = "square";
  if (m_type == SHAPE_TRIANGLE) type = "triangle";
  char size[64];
  snprintf(size, sizeof(size), "%f", m_size);
  return std::string(type) + ", size " + size + ", " + ot::toString(m_color) + ", " +
         ot::toString(static_cast<int>(m_opacity));
}

}  // namespace ot
