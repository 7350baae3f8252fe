#include "engine/paths/PathFind.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

#include "engine/core/LogManager.h"
#include "engine/core/ObjectListIterator.h"
#include "engine/world/Geometry.h"
#include "engine/world/Grid.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"

namespace ot {

namespace {

// Node marks: the search's, then the picture's.
constexpr std::uint8_t OPEN = 0x1;
constexpr std::uint8_t CLOSED = 0x2;
constexpr std::uint8_t BARRED = 0x4;  // a hard object that doesn't hold the end touches the cell
constexpr std::uint8_t HELD = 0x8;    // one that holds the end touches it
constexpr std::uint8_t ASK = 0x10;    // only the world's own walk can tell
constexpr std::uint8_t ASKED = 0x20;
constexpr std::uint8_t ASKED_BLOCKED = 0x40;
constexpr std::uint8_t PICTURE = BARRED | HELD | ASK | ASKED | ASKED_BLOCKED;

// Half up, and toward zero below it: cells left of 0 round as the searches always have.
int rounded(float v) {
  return static_cast<int>(static_cast<double>(v) + 0.5);  // NOLINT(bugprone-incorrect-roundings)
}

float cellDistance(Coord a, Coord b) {
  long long dx = static_cast<long long>(a.x) - b.x, dy = static_cast<long long>(a.y) - b.y;
  return static_cast<float>(std::sqrt(static_cast<double>(dx * dx + dy * dy)));
}

const float DIAGONAL = cellDistance(Coord{0, 0}, Coord{1, 1});

Vector positionOf(Coord cell) { return Vector(static_cast<float>(cell.x), static_cast<float>(cell.y)); }

// The cells along one axis of the seeker's box at each node of that axis.
struct Span {
  int first;
  int last;
  bool beyond;  // the box reaches outside the grid there
};

// Nodes n in [0, count) where a seeker span from seeker_start + n, of
// seeker_length, may overlap an object's span from start, of length: the
// exact bound widened by more than float rounding can move it, for the
// caller to test each node of.
void nearNodes(float start, float length, float seeker_start, float seeker_length, int count, int* p_lo,
               int* p_hi) {
  double s = start, l = length, ss = seeker_start, sl = seeker_length;
  double slack = (std::fabs(s) + std::fabs(l) + std::fabs(ss) + std::fabs(sl) + count + 1) * 1e-6;
  double lo = std::ceil(s - ss - std::max(sl, 0.0) - slack);
  double hi = std::floor(s - ss + std::max(l, 0.0) + slack);
  if (std::isnan(lo) || std::isnan(hi)) {
    lo = 0;
    hi = count - 1;
  }
  lo = std::max(lo, 0.0);
  hi = std::min(hi, count - 1.0);
  *p_lo = lo > hi ? 0 : static_cast<int>(lo);
  *p_hi = lo > hi ? -1 : static_cast<int>(hi);
}

// Whether two spans overlap, by the collision test itself on boxes flat in y.
bool spansMeet(float start, float length, float other_start, float other_length) {
  return boxIntersectsBox(Box(Vector(start, 0), length, 0), Box(Vector(other_start, 0), other_length, 0));
}

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
      // Kept quirk: the last try writes both rounded values into x, leaving y
      // as it was; searches keep starting where games have seen them start.
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
  // Departure: one block for all nodes. More nodes than orders can number fail as an
  // allocation would, long before memory could hold them.
  bool addressable = cols >= 0 && rows >= 0 &&
                     (cols == 0 || static_cast<size_t>(rows) <= UINT32_MAX / static_cast<size_t>(cols));
  m_nodes =
      addressable ? new (std::nothrow) Node[static_cast<size_t>(rows) * static_cast<size_t>(cols)] : nullptr;
  log.writeLog("PathFind::PathFind(): allocated [y, x]: %d, %d", rows, cols);
  if (!m_nodes) {
    log.writeLog("PathFind::PathFind(): Error!  Unable to allocate pathfinding for %d rows.", rows);
    return;
  }
  m_cols = cols;
  m_rows = rows;
  // Nodes get their f when opened: until then nothing reads it.
  if (inside(m_start)) {
    Node& node = nodeAt(m_start);
    node.g = 0;
    open(m_start, node, cellDistance(m_start, m_end));
  }
}

PathFind::~PathFind() { delete[] m_nodes; }

bool PathFind::isBlocked(Coord cell) const {
  ObjectList collisions = WorldManager::getInstance().getCollisions(m_p_object, positionOf(cell));
  ObjectListIterator it(&collisions);
  while (!it.isDone() && it.currentObject()->getSolidness() != HARD) it.next();
  if (it.isDone()) return false;
  // The end is reachable even inside a hard object, such as the target itself.
  return !boxContainsPosition(getWorldBox(it.currentObject()), positionOf(m_end));
}

bool PathFind::blockedAt(Coord cell) {
  Node& node = nodeAt(cell);
  if (!(node.marks & ASK)) return node.marks & BARRED;
  if (!(node.marks & ASKED)) node.marks |= ASKED | (isBlocked(cell) ? ASKED_BLOCKED : 0);
  return node.marks & ASKED_BLOCKED;
}

void PathFind::refreshPicture() {
  const Grid* p_grid = WorldManager::getInstance().getSceneGraph().getGrid();
  // The end, which the picture depends on too, moves only as the search ends.
  if (m_picture_taken && p_grid->getRevision() == m_picture_revision && m_p_object->getBox() == m_picture_box)
    return;
  takePicture(*p_grid);
}

// A cell is blocked when the first hard object in the grid's answer for it
// doesn't hold the end. Most cells have no hard object or only one kind, and
// the picture answers them; where both kinds meet, the order decides, and
// the cell is left to the world's own walk.
void PathFind::takePicture(const Grid& grid) {
  m_picture_taken = true;
  m_picture_revision = grid.getRevision();
  m_picture_box = m_p_object->getBox();
  size_t count = static_cast<size_t>(m_rows) * static_cast<size_t>(m_cols);
  for (size_t i = 0; i < count; i++) m_nodes[i].marks &= ~PICTURE;
  if (!grid.isAllocated()) {
    for (size_t i = 0; i < count; i++) m_nodes[i].marks |= ASK;
    return;
  }
  // The grid cells the seeker's box covers at each node, per axis, placed
  // as getWorldBox places it.
  Box box = m_picture_box;
  std::vector<Span> xs(m_cols), ys(m_rows);
  for (int x = 0; x < m_cols; x++)
    xs[x].beyond = grid.getColumns(box.getCorner().getX() + static_cast<float>(x), box.getHorizontal(),
                                   &xs[x].first, &xs[x].last);
  for (int y = 0; y < m_rows; y++)
    ys[y].beyond = grid.getRows(box.getCorner().getY() + static_cast<float>(y), box.getVertical(),
                                &ys[y].first, &ys[y].last);

  Vector end = positionOf(m_end);
  std::vector<int> hit_xs, hit_ys;
  auto mark = [&](const Grid::CellKey& key) {
    bool beyond = key == Grid::OUT_OF_BOUNDS;
    ObjectList list = grid.getObjects(key);
    for (ObjectListIterator it(&list); !it.isDone(); it.next()) {
      Object* p_o = it.currentObject();
      if (p_o == m_p_object || p_o->getSolidness() != HARD) continue;
      Box other = getWorldBox(p_o);
      float ox = other.getCorner().getX(), oy = other.getCorner().getY();
      // The object is found at a node when one of its grid cells is under
      // the seeker's box there, and the boxes meet.
      int lo, hi;
      hit_xs.clear();
      nearNodes(ox, other.getHorizontal(), box.getCorner().getX(), box.getHorizontal(), m_cols, &lo, &hi);
      for (int x = lo; x <= hi; x++) {
        if (!beyond && (key.second < xs[x].first || key.second > xs[x].last)) continue;
        if (spansMeet(ox, other.getHorizontal(), box.getCorner().getX() + static_cast<float>(x),
                      box.getHorizontal()))
          hit_xs.push_back(x);
      }
      if (hit_xs.empty()) continue;
      hit_ys.clear();
      nearNodes(oy, other.getVertical(), box.getCorner().getY(), box.getVertical(), m_rows, &lo, &hi);
      for (int y = lo; y <= hi; y++) {
        if (!beyond && (key.first < ys[y].first || key.first > ys[y].last)) continue;
        if (spansMeet(oy, other.getVertical(), box.getCorner().getY() + static_cast<float>(y),
                      box.getVertical()))
          hit_ys.push_back(y);
      }
      std::uint8_t hit = boxContainsPosition(other, end) ? HELD : BARRED;
      for (int y : hit_ys)
        for (int x : hit_xs)
          if (!beyond || xs[x].beyond || ys[y].beyond) nodeAt(Coord{x, y}).marks |= hit;
    }
  };
  mark(Grid::OUT_OF_BOUNDS);
  for (int row = 0; row < grid.getNumRows(); row++)
    for (int col = 0; col < grid.getNumCols(); col++) mark(Grid::CellKey{row, col});
  for (size_t i = 0; i < count; i++)
    if ((m_nodes[i].marks & (BARRED | HELD)) == (BARRED | HELD)) m_nodes[i].marks |= ASK;
}

void PathFind::open(Coord cell, Node& node, float f) {
  node.marks |= OPEN;
  node.order = m_next_order++;
  m_open_count++;
  push(cell, node, f);
}

void PathFind::push(Coord cell, Node& node, float f) {
  node.f = f;
  m_open.push_back(OpenEntry{keyOf(f, node.order), static_cast<size_t>(cell.y) * m_cols + cell.x});
  std::push_heap(m_open.begin(), m_open.end(), Later());
}

std::uint64_t PathFind::keyOf(float f, std::uint32_t order) {
  std::uint32_t bits;
  std::memcpy(&bits, &f, sizeof bits);
  return static_cast<std::uint64_t>(bits) << 32 | order;
}

int PathFind::cycleOnce() {
  if (!m_nodes) {
    LogManager::getInstance().writeLog("PathFind::cycleOnce(): node graph not allocated.  Cannot find path.");
    return PATH_FAILED;
  }
  // The open node of lowest f, the earliest opened of equals; the start when
  // none is open.
  Coord current = m_start;
  while (!m_open.empty()) {
    OpenEntry top = m_open.front();
    std::pop_heap(m_open.begin(), m_open.end(), Later());
    m_open.pop_back();
    Coord cell{static_cast<int>(top.index % m_cols), static_cast<int>(top.index / m_cols)};
    const Node& node = nodeAt(cell);
    if ((node.marks & OPEN) && keyOf(node.f, node.order) == top.key) {
      current = cell;
      break;
    }
  }
  if (inside(current)) {
    Node& node = nodeAt(current);
    if (node.marks & OPEN) m_open_count--;
    node.marks = static_cast<std::uint8_t>((node.marks & ~OPEN) | CLOSED);
  }

  if (current == m_end) m_found = true;
  if (m_p_target && boxIntersectsBox(getWorldBox(m_p_object, positionOf(current)),
                                     getWorldBox(m_p_target, positionOf(m_end)))) {
    m_found = true;
    m_end = current;
  }
  if (m_found) return PATH_FOUND;
  if (!inside(current)) return m_open_count == 0 ? PATH_FAILED : PATH_SEARCHING;

  refreshPicture();
  float g = nodeAt(current).g;
  for (int dy = -1; dy <= 1; dy++) {
    for (int dx = -1; dx <= 1; dx++) {
      if (dx == 0 && dy == 0) continue;
      Coord next{current.x + dx, current.y + dy};
      if (!inside(next)) continue;
      Node& node = nodeAt(next);
      if (node.marks & CLOSED) continue;
      if (blockedAt(next)) continue;
      bool diagonal = dx != 0 && dy != 0;
      // A diagonal may cut a corner: only two blocked flanks refuse it.
      if (diagonal && blockedAt(Coord{current.x + dx, current.y}) &&
          blockedAt(Coord{current.x, current.y + dy}))
        continue;
      float tentative = g + (diagonal ? DIAGONAL : 1.0f);
      bool fresh = !(node.marks & OPEN);
      if (!fresh && tentative > node.g) continue;
      node.step = static_cast<std::uint8_t>((dy + 1) * 3 + dx + 1);
      node.g = tentative;
      float f = tentative + cellDistance(next, m_end);
      // An improved node keeps its order; a new f needs a new entry.
      if (fresh)
        open(next, node, f);
      else if (f != node.f)
        push(next, node, f);
    }
  }
  return m_open_count == 0 ? PATH_FAILED : PATH_SEARCHING;
}

Path PathFind::getPath() const {
  Path path;
  if (!m_found) return path;
  std::vector<Vector> points;
  Coord coord = m_end;
  while (coord != m_start && inside(coord) && nodeAt(coord).step != NO_STEP) {
    points.push_back(positionOf(coord));
    int step = nodeAt(coord).step;
    coord = Coord{coord.x - (step % 3 - 1), coord.y - (step / 3 - 1)};
  }
  points.push_back(positionOf(m_start));
  std::reverse(points.begin(), points.end());
  path.setPoints(points);
  return path;
}

}  // namespace ot
