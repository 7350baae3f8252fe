#pragma once

#include <vector>

#include "engine/core/Vector.h"
#include "engine/paths/Path.h"

namespace ot {

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
// the boundary must not change while it runs.
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
  struct Node {
    float g = 0.0f;  // cost from the start
    float f = 0.0f;  // g plus the estimate to the end
    Coord parent;
  };

  bool isBlocked(Coord cell) const;

  Object* m_p_object = nullptr;  // not owned
  Object* m_p_target = nullptr;  // not owned
  Coord m_start;
  Coord m_end;
  Node** m_nodes = nullptr;  // [y][x]; null when the set-up failed
  int m_rows = 0;            // rows allocated
  std::vector<Coord> m_open;
  std::vector<Coord> m_closed;
  int m_cycles = 0;
  bool m_found = false;
};

}  // namespace ot
