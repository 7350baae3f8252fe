#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "engine/core/Types.h"
#include "engine/core/Vector.h"

namespace ot {

// Way points with a cursor: the index of the next point to reach. An object
// holds its path by value and walks it in WorldManager::update.
class Path {
 public:
  Path() = default;

  std::vector<Vector> getPoints() const { return m_points; }
  void setPoints(std::vector<Vector> points) { m_points = std::move(points); }
  void clear();
  int size() const { return static_cast<int>(m_points.size()); }

  // True once the index is at or past the end; a negative index counts as done.
  bool isDone() const;
  // The point at the index, or (0,0) when done.
  Vector getCurrent() const;
  // The point before the index, or (0,0) when the index is below 1.
  Vector getPrevious() const;
  // The last point; the path must not be empty.
  Vector getLast() const;
  int getIndex() const { return m_index; }
  // Stores any index, but refuses (-1) while the present one is done or negative.
  int setIndex(int index);

  // Advances to the next point, never beyond the end; returns the path as it was.
  Path operator++(int);

  bool operator==(const Path& other) const;
  bool operator!=(const Path& other) const;

  // Draws '.' at each point still ahead; the sum of the drawing results.
  int draw(Color color) const;

  // Each point's text followed by '|'.
  std::string toString() const;

  // A 64-bit count, then the points; the index doesn't travel, so a path read
  // starts at its first point. The result of checkStream.
  int serialize(std::stringstream* p_ss) const;
  int deserialize(std::stringstream* p_ss);

 private:
  std::vector<Vector> m_points;
  int m_index = 0;
};

}  // namespace ot
