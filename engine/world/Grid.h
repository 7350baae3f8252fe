#pragma once

#include <set>
#include <string>
#include <utility>

#include "engine/core/ObjectList.h"
#include "engine/core/Vector.h"

namespace ot {

class Object;

// The spatial index of the active solid objects: the world cut into cells of
// grid_width by grid_height spaces, one list per cell, plus one list for what
// reaches beyond the world. A collision query looks only at the cells under a
// box. Owned by the SceneGraph; points at objects it doesn't own.
class Grid {
 public:
  // A cell as (row, col); OUT_OF_BOUNDS stands for the list of what lies outside.
  using CellKey = std::pair<int, int>;
  static constexpr CellKey OUT_OF_BOUNDS{-1, -1};

  Grid();
  ~Grid();
  Grid(const Grid&) = delete;
  Grid& operator=(const Grid&) = delete;

  // Allocates empty cells for the world boundary; -1 if already allocated or out of memory.
  int startUp();
  // Frees the cells; the objects are simply dropped from the index.
  void shutDown();
  // Changes the cell size and refills the grid from the solid objects.
  void setDimensions(int cell_width, int cell_height);

  // Enters the object into every cell its box covers at its position.
  int insertObject(Object* p_o);
  // Takes a solid, active object out of the cells of its present position.
  int removeObject(Object* p_o);
  // Moves the object's entries to the cells it covers at where; touches only
  // the cells that differ.
  int updatePosition(Object* p_o, Vector where);
  // The solid objects whose boxes p_o's box would touch at where, by first
  // appearance: out of bounds first, then row by row.
  ObjectList getCollisions(Object* p_o, Vector where) const;
  // A copy of a cell's list; any key outside the grid gives the out-of-bounds list.
  ObjectList getObjects(CellKey key) const;
  // The cells p_o's box covers at where, with the marker if it reaches outside.
  std::set<CellKey> getCells(Object* p_o, Vector where) const;
  // The columns (rows) from first to last that a span from start to start +
  // length covers, clamped to the grid; true when it reaches beyond. A box's
  // cells are its two spans crossed, plus the marker if either reaches beyond.
  bool getColumns(float start, float length, int* p_first, int* p_last) const;
  bool getRows(float start, float length, int* p_first, int* p_last) const;

  bool isAllocated() const { return m_grid != nullptr; }
  // Changes whenever an answer of getCollisions may have: an object entering,
  // leaving or moving, the cells being remade, or (told by the SceneGraph) the
  // solidness of an object held changing. Lets a reader keep what it derived.
  unsigned long getRevision() const { return m_revision; }
  void noteChange() { m_revision++; }

  int getCellWidth() const { return m_cell_width; }
  int getCellHeight() const { return m_cell_height; }
  int getNumCols() const { return m_num_cols; }
  int getNumRows() const { return m_num_rows; }

  // A dump of every cell, for debugging.
  std::string toString() const;

 private:
  bool isInside(CellKey key) const;

  ObjectList** m_grid = nullptr;  // [row][col]; null when not allocated
  ObjectList m_out_of_bounds;
  int m_num_cols = 0;
  int m_num_rows = 0;
  int m_cell_width;
  int m_cell_height;
  unsigned long m_revision = 0;
};

}  // namespace ot
