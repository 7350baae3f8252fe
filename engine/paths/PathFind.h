#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "engine/core/Box.h"
#include "engine/core/Vector.h"
#include "engine/paths/Path.h"

namespace ot {

class Grid;
class Object;

// Results of PathFind::cycleOnce.
enum PathStatus {
  PATH_FAILED = 0,
  PATH_SEARCHING,
  PATH_FOUND,
};

// A cell of the world, in whole spaces.
struct Coord {
  int x = 0;
  int y = 0;
  bool operator==(const Coord& other) const { return x == other.x && y == other.y; }
  bool operator!=(const Coord& other) const { return !(*this == other); }
};

// One running search for a way through the world for one object: an A* over
// the whole-space cells of the boundary, advanced one node per cycleOnce by
// the PathManager in the frame's spare time. Made and deleted by its object;
// Departure: it searches the boundary it was made with.
//
// Departure: what is blocked for the seeker's box is taken from the grid's hard objects
// in one pass, a picture kept until the grid's revision or the seeker's box
// changes; meanwhile the world is asked about a cell at most once.
class PathFind {
 public:
  PathFind(Object* p_object, Vector start, Vector end);
  ~PathFind();
  PathFind(const PathFind&) = delete;
  PathFind& operator=(const PathFind&) = delete;

  // Looks at one more cell; the search's status.
  int cycleOnce();
  // The path found, start cell first; empty until found.
  Path getPath() const;

  Object* getObject() const { return m_p_object; }
  Object* getTarget() const { return m_p_target; }
  // A goal object: the search ends as soon as the boxes would touch.
  void setTarget(Object* p_target) { m_p_target = p_target; }
  int getCycles() const { return m_cycles; }

 private:
  static constexpr std::uint8_t NO_STEP = 4;
  // 16 bytes, so that four share a cache line.
  struct Node {
    float g = std::numeric_limits<float>::infinity();  // cost from the start
    float f = 0.0f;                                    // g plus the estimate to the end, once open
    std::uint32_t order = 0;                           // when it was opened
    std::uint8_t step = NO_STEP;  // from the parent, as (dy + 1) * 3 + dx + 1: the parent is a neighbour
    std::uint8_t marks = 0;       // open, closed, and what the picture says of the cell
  };
  // An entry of the open set's heap: f and then the order in one key, so
  // that of equal f the earliest opened comes first, as the first of the
  // lowest in a list kept in order of opening. f is never negative, and the
  // bits of such floats order as the floats do. Improving a node pushes it
  // anew; the entry left behind no longer matches the node and is passed over.
  struct OpenEntry {
    std::uint64_t key;
    size_t index;
  };
  struct Later {
    bool operator()(const OpenEntry& a, const OpenEntry& b) const { return a.key > b.key; }
  };

  // Asks the world: whether a hard object bars the cell.
  bool isBlocked(Coord cell) const;
  // The picture's answer, asking the world where the picture can't tell.
  bool blockedAt(Coord cell);
  // Retakes the picture if what it was taken from has changed.
  void refreshPicture();
  void takePicture(const Grid& grid);
  bool inside(Coord cell) const { return cell.x >= 0 && cell.y >= 0 && cell.x < m_cols && cell.y < m_rows; }
  Node& nodeAt(Coord cell) const { return m_nodes[static_cast<size_t>(cell.y) * m_cols + cell.x]; }
  // Opens a node with a fresh order, or gives an open one a new f.
  void open(Coord cell, Node& node, float f);
  void push(Coord cell, Node& node, float f);
  static std::uint64_t keyOf(float f, std::uint32_t order);

  Object* m_p_object = nullptr;  // not owned
  Object* m_p_target = nullptr;  // not owned
  Coord m_start;
  Coord m_end;
  Node* m_nodes = nullptr;  // [y * m_cols + x], one block; null when the set-up failed
  int m_cols = 0;
  int m_rows = 0;
  std::vector<OpenEntry> m_open;  // a binary heap, lowest key on top
  int m_open_count = 0;           // nodes open; the heap may hold stale entries too
  std::uint32_t m_next_order = 0;
  int m_cycles = 0;
  bool m_found = false;
  // What the picture of blocked cells was taken from.
  bool m_picture_taken = false;
  unsigned long m_picture_revision = 0;
  Box m_picture_box;
};

}  // namespace ot
