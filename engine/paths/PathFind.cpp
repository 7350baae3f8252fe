#include "engine/paths/PathFind.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

#include "engine/core/LogManager.h"
#include "engine/core/ObjectListIterator.h"
#include "engine/world/Geometry.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"

namespace ot {

namespace {

int rounded(float v) { return static_cast<int>(static_cast<double>(v) + 0.5); }

float cellDistance(Coord a, Coord b) {
  int dx = a.x - b.x, dy = a.y - b.y;
  return static_cast<float>(std::sqrt(static_cast<double>(dx * dx + dy * dy)));
}

bool contains(const std::vector<Coord>& cells, Coord cell) {
  return std::find(cells.begin(), cells.end(), cell) != cells.end();
}

Vector positionOf(Coord cell) { return Vector(static_cast<float>(cell.x), static_cast<float>(cell.y)); }

}  // namespace

PathFind::PathFind(Object* p_object, Vector start, Vector end) : m_p_object(p_object) {
  LogManager& log = LogManager::getInstance();
  if (!p_object) {
    log.writeLog("PathFind()::PathFind(): Fatal error! Object pointer is NULL.");
    return;
  }
  m_end = Coord{rounded(end.getX()), rounded(end.getY())};
  m_start = Coord{rounded(start.getX()), rounded(start.getY())};

  if (isBlocked(m_start)) {
    int tx = static_cast<int>(start.getX()), ty = static_cast<int>(start.getY());
    const Coord tries[] = {{tx, ty}, {rounded(start.getX()), ty}, {tx, rounded(start.getY())}};
    bool free_found = false;
    for (const Coord& attempt : tries) {
      m_start = attempt;
      if (!isBlocked(m_start)) {
        free_found = true;
        break;
      }
    }
    if (!free_found) {
      // The last try writes both rounded values into x, leaving y as it was:
      // a slip that is part of the behaviour.
      m_start.x = rounded(start.getX());
      m_start.x = rounded(start.getY());
      if (isBlocked(m_start)) log.writeLog("PathFind::PathFind(): Warning! Can't get to start node.");
    }
  }

  Box boundary = WorldManager::getInstance().getBoundary();
  if (!boxContainsPosition(boundary, start) || !boxContainsPosition(boundary, end)) {
    log.writeLog(
        "PathFind::PathFind(): Error! Both start (%.2f, %.2f) and end (%.2f, %.2f) must be within world "
        "boundary (%d, %d).",
        start.getX(), start.getY(), end.getX(), end.getY(), static_cast<int>(boundary.getHorizontal()),
        static_cast<int>(boundary.getVertical()));
    return;
  }

  int cols = static_cast<int>(boundary.getHorizontal());
  int rows = static_cast<int>(boundary.getVertical());
  m_nodes = new (std::nothrow) Node*[rows];
  log.writeLog("PathFind::PathFind(): allocated [y, x]: %d, %d", rows, cols);
  if (!m_nodes) {
    log.writeLog("PathFind::PathFind(): Error!  Unable to allocate pathfinding for %d rows.", rows);
    return;
  }
  // Rows left unset by a failure stay null, and such a find fails at once.
  std::fill(m_nodes, m_nodes + rows, nullptr);
  m_rows = rows;
  for (int y = 0; y < rows; y++) {
    m_nodes[y] = new (std::nothrow) Node[cols];
    if (!m_nodes[y]) {
      log.writeLog("PathFind::PathFind(): Error!  Unable to allocate pathfinding for %d columns at row %d.",
                   cols, y);
      return;
    }
    for (int x = 0; x < cols; x++) {
      m_nodes[y][x].g = std::numeric_limits<float>::infinity();
      m_nodes[y][x].f = cellDistance(Coord{x, y}, m_end);
    }
  }
  if (m_start.x >= 0 && m_start.y >= 0 && m_start.x < cols && m_start.y < rows) {
    m_nodes[m_start.y][m_start.x].f = cellDistance(m_start, m_end);
    m_nodes[m_start.y][m_start.x].g = 0;
  }
  m_open.clear();
  m_open.push_back(m_start);
  m_closed.clear();
}

PathFind::~PathFind() {
  if (!m_nodes) return;
  for (int y = 0; y < m_rows; y++) delete[] m_nodes[y];
  delete[] m_nodes;
}

bool PathFind::isBlocked(Coord cell) const {
  ObjectList collisions = WorldManager::getInstance().getCollisions(m_p_object, positionOf(cell));
  ObjectListIterator it(&collisions);
  while (!it.isDone() && it.currentObject()->getSolidness() != HARD) it.next();
  if (it.isDone()) return false;
  // The end is reachable even inside a hard object, such as the target itself.
  return !boxContainsPosition(getWorldBox(it.currentObject()), positionOf(m_end));
}

int PathFind::cycleOnce() {
  bool complete = m_nodes != nullptr;
  for (int y = 0; complete && y < m_rows; y++) complete = m_nodes[y] != nullptr;
  if (!complete) {
    LogManager::getInstance().writeLog("PathFind::cycleOnce(): node graph not allocated.  Cannot find path.");
    return PATH_FAILED;
  }
  Box boundary = WorldManager::getInstance().getBoundary();
  int width = static_cast<int>(boundary.getHorizontal());
  int height = static_cast<int>(boundary.getVertical());
  auto inside = [width, height](Coord c) { return c.x >= 0 && c.y >= 0 && c.x < width && c.y < height; };

  Coord current = m_start;
  float lowest = std::numeric_limits<float>::infinity();
  for (const Coord& cell : m_open) {
    if (inside(cell) && lowest > m_nodes[cell.y][cell.x].f) {
      current = cell;
      lowest = m_nodes[cell.y][cell.x].f;
    }
  }
  auto found = std::find(m_open.begin(), m_open.end(), current);
  if (found != m_open.end()) m_open.erase(found);
  m_closed.push_back(current);

  if (current == m_end) m_found = true;
  if (m_p_target && boxIntersectsBox(getWorldBox(m_p_object, positionOf(current)),
                                     getWorldBox(m_p_target, positionOf(m_end)))) {
    m_found = true;
    m_end = current;
  }
  if (m_found) return PATH_FOUND;
  if (!inside(current)) return m_open.empty() ? PATH_FAILED : PATH_SEARCHING;

  for (int dy = -1; dy <= 1; dy++) {
    for (int dx = -1; dx <= 1; dx++) {
      if (dx == 0 && dy == 0) continue;
      Coord next{current.x + dx, current.y + dy};
      if (!inside(next)) continue;
      if (contains(m_closed, next)) continue;
      if (isBlocked(next)) continue;
      // A diagonal may cut a corner: only two blocked flanks refuse it.
      if (dx != 0 && dy != 0 && isBlocked(Coord{current.x + dx, current.y}) &&
          isBlocked(Coord{current.x, current.y + dy}))
        continue;
      float tentative = m_nodes[current.y][current.x].g + cellDistance(current, next);
      Node& node = m_nodes[next.y][next.x];
      if (contains(m_open, next)) {
        if (tentative > node.g) continue;
      } else {
        m_open.push_back(next);
      }
      node.parent = current;
      node.g = tentative;
      node.f = tentative + cellDistance(next, m_end);
    }
  }
  return m_open.empty() ? PATH_FAILED : PATH_SEARCHING;
}

Path PathFind::getPath() const {
  Path path;
  if (!m_found) return path;
  std::vector<Vector> points;
  Coord coord = m_end;
  while (coord != m_start) {
    points.push_back(positionOf(coord));
    coord = m_nodes[coord.y][coord.x].parent;
  }
  points.push_back(positionOf(m_start));
  std::reverse(points.begin(), points.end());
  path.setPoints(points);
  return path;
}

}  // namespace ot
