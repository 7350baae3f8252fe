#include "engine/effects/Precipitation.h"

#include <cmath>
#include <cstdlib>

#include "engine/core/Box.h"
#include "engine/core/Event.h"
#include "engine/core/EventLabels.h"
#include "engine/core/LogManager.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/world/WorldManager.h"

namespace ot {

namespace {

// The world's size in whole spaces, or false when either side is below one:
// rand() % 0 has no result, and the boundary is never that small in normal
// use, so such a world gets no precipitation placement at all.
bool boundarySpaces(int& width, int& height) {
  Box boundary = WorldManager::getInstance().getBoundary();
  width = static_cast<int>(boundary.getHorizontal());
  height = static_cast<int>(boundary.getVertical());
  return width >= 1 && height >= 1;
}

// Moves a position in spaces to anywhere inside its cell, y first. An axis
// whose cell is under a pixel (no window geometry) is left alone rather than
// divided by zero.
Vector scatterInCell(Vector spaces) {
  Vector pixels = spacesToPixels(spaces);
  float cell_height = charHeight();
  float cell_width = charWidth();
  if (cell_height >= 1.0f)
    pixels.setY(pixels.getY() + static_cast<float>(rand() % static_cast<int>(cell_height)));
  if (cell_width >= 1.0f)
    pixels.setX(pixels.getX() + static_cast<float>(rand() % static_cast<int>(cell_width)));
  return pixelsToSpaces(pixels);
}

// v plus a drift of up to 0.099 either way, the added draw first.
float wobbled(float v) {
  int up = rand() % 100;
  int down = rand() % 100;
  return static_cast<float>(v + up / 1000.0 - down / 1000.0);
}

}  // namespace

Precipitation::Precipitation(float size, Direction direction, unsigned char opacity, unsigned char r,
                             unsigned char g, unsigned char b)
    : Particle(size, 0, opacity, r, g, b), m_direction(direction) {
  setType("Precipitation");

  int width = 0;
  int height = 0;
  if (!boundarySpaces(width, height)) {
    LogManager::getInstance().writeLog(
        "Precipitation::Precipitation(): Warning! boundary %d x %d has no room, placed at the origin.", width,
        height);
    setPosition(Vector(0.0f, 0.0f));
    return;
  }
  // x may lie up to 9 spaces past the boundary, so that the first frame shows
  // no even right edge.
  int y = rand() % height;
  int x = rand() % width;
  x += rand() % 10;
  setPosition(scatterInCell(Vector(static_cast<float>(x), static_cast<float>(y))));
}

int Precipitation::eventHandler(const Event* p_e) {
  if (p_e->getType() == STEP_EVENT && m_wobble) {
    Vector velocity = getVelocity();
    if (!m_old_velocity) m_old_velocity = velocity;
    float m = m_old_velocity.getMagnitude();
    float new_y = wobbled(velocity.getY());
    float new_x = wobbled(velocity.getX());
    if (m > 0.0f && std::fabs(new_x - m_old_velocity.getX()) / m > 0.25f) new_x = velocity.getX();
    // Kept quirk: no test of m here, unlike x: with m 0 any drift divides to
    // infinity and is dropped, while no drift (0/0) keeps the candidate.
    if (std::fabs(new_y - m_old_velocity.getY()) / m > 0.25f) new_y = velocity.getY();
    setVelocity(Vector(new_x, new_y));
  }
  if (p_e->getType() != OUT_EVENT) return 0;

  int width = 0;
  int height = 0;
  if (!boundarySpaces(width, height)) {
    LogManager::getInstance().writeLog(
        "Precipitation::eventHandler(): Warning! boundary %d x %d has no room to re-enter.", width, height);
    return -1;
  }
  // Each coordinate is drawn in the order written, x before y.
  int x = 0;
  int y = 0;
  switch (m_direction) {
    case UP:
      x = rand() % width;
      y = height + rand() % 5;
      break;
    case DOWN:
      x = rand() % width;
      y = (-rand()) % 5;
      break;
    case LEFT:
      x = width + rand() % 5;
      y = rand() % height;
      break;
    case RIGHT:
      x = (-rand()) % 5;
      y = rand() % height;
      break;
    default:
      LogManager::getInstance().writeLog(
          LOG_INFO, "Precipitation::eventHandler(): warning! Direction %d not supported.", m_direction);
      return -1;
  }
  setPosition(scatterInCell(Vector(static_cast<float>(x), static_cast<float>(y))));
  return 1;
}

}  // namespace ot
