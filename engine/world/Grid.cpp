#include "engine/world/Grid.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <new>

#include "engine/core/Config.h"
#include "engine/core/LogManager.h"
#include "engine/core/ObjectListIterator.h"
#include "engine/core/Utility.h"
#include "engine/world/Geometry.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"

namespace ot {

namespace {

// A cell index from a quotient, held within one cell beyond either end first:
// a received position may be huge or NaN, and converting that to int is
// undefined. fminf takes NaN to the far end, so it lies beyond the world.
int toCell(float quotient, int count) {
  return static_cast<int>(fmaxf(fminf(floorf(quotient), static_cast<float>(count)), -1.0f));
}

// The cells of size `size` from the one holding start to the one holding
// start + length, of count in all; true when clamped.
bool span(float start, float length, int size, int count, int* p_first, int* p_last) {
  // The far edge belongs to the span: one ending on a cell border takes the next cell too.
  *p_first = toCell(start / static_cast<float>(size), count);
  *p_last = toCell((start + length) / static_cast<float>(size), count);
  bool beyond = false;
  if (*p_first < 0) {
    *p_first = 0;
    beyond = true;
  }
  if (*p_last >= count) {
    *p_last = count - 1;
    beyond = true;
  }
  return beyond;
}

}  // namespace

Grid::Grid()
    : m_cell_width(Config::getInstance().getGridWidth()),
      m_cell_height(Config::getInstance().getGridHeight()) {}

Grid::~Grid() { shutDown(); }

int Grid::startUp() {
  LogManager& log = LogManager::getInstance();
  if (m_grid) {
    log.writeLog("Grid::startUp(): Warning! Grid allocated. Not proceeding.");
    return -1;
  }
  m_revision++;
  Box boundary = WorldManager::getInstance().getBoundary();
  m_num_cols = static_cast<int>(ceilf(boundary.getHorizontal() / static_cast<float>(m_cell_width)));
  m_num_rows = static_cast<int>(ceilf(boundary.getVertical() / static_cast<float>(m_cell_height)));
  log.writeLog(LOG_DETAIL, "Grid::startUp(): m_num_cols %d, m_num_rows %d", m_num_cols, m_num_rows);

  // Zero rows is a legal, empty grid: new[] of 0 still gives a pointer.
  m_grid = new (std::nothrow) ObjectList*[std::max(m_num_rows, 0)];
  if (!m_grid) {
    log.writeLog("Grid::startUp(): Error! Unable to allocate %d grid rows.", m_num_rows);
    return -1;
  }
  for (int row = 0; row < m_num_rows; row++) m_grid[row] = nullptr;
  for (int row = 0; row < m_num_rows; row++) {
    m_grid[row] = new (std::nothrow) ObjectList[std::max(m_num_cols, 0)];
    if (!m_grid[row]) {
      log.writeLog("Grid::startUp(): Error! Unable to allocate columns.");
      return -1;
    }
    for (int col = 0; col < m_num_cols; col++) m_grid[row][col].clear();
  }
  m_out_of_bounds.clear();
  return 0;
}

void Grid::shutDown() {
  m_revision++;
  if (m_grid) {
    for (int row = 0; row < m_num_rows; row++) delete[] m_grid[row];
    delete[] m_grid;
  }
  m_grid = nullptr;
  m_out_of_bounds.clear();
}

void Grid::setDimensions(int cell_width, int cell_height) {
  if (cell_width == m_cell_width && cell_height == m_cell_height) return;
  shutDown();
  m_cell_width = cell_width;
  m_cell_height = cell_height;
  if (startUp() == -1) {
    LogManager::getInstance().writeLog(
        "Grid::setDimensions(): Error! startup() failed so not adding Objects");
    return;
  }
  ObjectList solid = WorldManager::getInstance().getSceneGraph().solidObjects();
  for (ObjectListIterator it(&solid); !it.isDone(); it.next()) {
    if (it.currentObject()->isActive()) insertObject(it.currentObject());
  }
}

bool Grid::isInside(CellKey key) const {
  return key.second >= 0 && key.first >= 0 && key.second < m_num_cols && key.first < m_num_rows;
}

std::set<Grid::CellKey> Grid::getCells(Object* p_o, Vector where) const {
  Box box = getWorldBox(p_o, where);
  int first_col, last_col, first_row, last_row;
  bool out_of_bounds = getColumns(box.getCorner().getX(), box.getHorizontal(), &first_col, &last_col);
  if (getRows(box.getCorner().getY(), box.getVertical(), &first_row, &last_row)) out_of_bounds = true;
  std::set<CellKey> cells;
  if (out_of_bounds) cells.insert(OUT_OF_BOUNDS);
  for (int row = first_row; row <= last_row; row++)
    for (int col = first_col; col <= last_col; col++) cells.insert({row, col});
  return cells;
}

bool Grid::getColumns(float start, float length, int* p_first, int* p_last) const {
  return span(start, length, m_cell_width, m_num_cols, p_first, p_last);
}

bool Grid::getRows(float start, float length, int* p_first, int* p_last) const {
  return span(start, length, m_cell_height, m_num_rows, p_first, p_last);
}

int Grid::insertObject(Object* p_o) {
  LogManager& log = LogManager::getInstance();
  if (!m_grid) {
    log.writeLog("Grid::insertObject(): Error! grid is NULL");
    return -1;
  }
  if (!p_o) {
    log.writeLog("Grid::insertObject(): Error! Object is NULL");
    return -1;
  }
  m_revision++;
  for (const CellKey& key : getCells(p_o, p_o->getPosition())) {
    if (key == OUT_OF_BOUNDS)
      m_out_of_bounds.insert(p_o);
    else
      m_grid[key.first][key.second].insert(p_o);
  }
  return 0;
}

int Grid::removeObject(Object* p_o) {
  LogManager& log = LogManager::getInstance();
  if (!m_grid) {
    log.writeLog("Grid::removeObject(): Error! grid is NULL");
    return -1;
  }
  if (!p_o) {
    log.writeLog("Grid::removeObject(): Error! Object is NULL");
    return -1;
  }
  if (!p_o->isSolid() || !p_o->isActive()) return 0;
  m_revision++;
  for (const CellKey& key : getCells(p_o, p_o->getPosition())) {
    if (key == OUT_OF_BOUNDS)
      m_out_of_bounds.remove(p_o);
    else
      m_grid[key.first][key.second].remove(p_o);
  }
  return 0;
}

int Grid::updatePosition(Object* p_o, Vector where) {
  LogManager& log = LogManager::getInstance();
  if (!m_grid) {
    log.writeLog("Grid::updatePosition(): Error! grid is NULL");
    return -1;
  }
  if (!p_o) {
    log.writeLog("Grid::updatePosition(): Error! Object is NULL");
    return -1;
  }
  m_revision++;
  std::set<CellKey> before = getCells(p_o, p_o->getPosition());
  std::set<CellKey> after = getCells(p_o, where);
  // Only the cells that differ are touched, so a small step costs nothing.
  std::set<CellKey> old_cells, new_cells;
  std::set_difference(before.begin(), before.end(), after.begin(), after.end(),
                      std::inserter(old_cells, old_cells.begin()));
  std::set_difference(after.begin(), after.end(), before.begin(), before.end(),
                      std::inserter(new_cells, new_cells.begin()));
  for (const CellKey& key : old_cells) {
    if (key == OUT_OF_BOUNDS)
      m_out_of_bounds.remove(p_o);
    else if (isInside(key))
      m_grid[key.first][key.second].remove(p_o);
    else
      log.writeLog("Error! remove Cell x,y out of bounds (%d, %d).", key.second, key.first);
  }
  for (const CellKey& key : new_cells) {
    if (key == OUT_OF_BOUNDS)
      m_out_of_bounds.insert(p_o);
    else if (isInside(key))
      m_grid[key.first][key.second].insert(p_o);
    else
      log.writeLog("Error! insert Cell x,y out of bounds [%d, %d].", key.first, key.second);
  }
  return 0;
}

ObjectList Grid::getCollisions(Object* p_o, Vector where) const {
  LogManager& log = LogManager::getInstance();
  ObjectList collision_list;
  if (!m_grid) {
    log.writeLog("Grid::getCollisions(): Error! grid is NULL");
    return collision_list;
  }
  if (!p_o) {
    log.writeLog("Grid::getCollisions(): Error! Object is NULL");
    return collision_list;
  }
  // Candidates by first appearance; an object seen through several cells comes once.
  ObjectList ol;
  for (const CellKey& key : getCells(p_o, where)) {
    ObjectList add_list = (key == OUT_OF_BOUNDS) ? m_out_of_bounds : m_grid[key.first][key.second];
    for (ObjectListIterator it(&add_list); !it.isDone(); it.next()) {
      Object* p_candidate = it.currentObject();
      bool seen = false;
      for (ObjectListIterator known(&ol); !known.isDone() && !seen; known.next())
        seen = (known.currentObject() == p_candidate);
      if (!seen) ol.insert(p_candidate);
    }
  }
  Box orig_box = getWorldBox(p_o, where);
  for (ObjectListIterator it(&ol); !it.isDone(); it.next()) {
    Object* p_other = it.currentObject();
    if (p_other == p_o) continue;
    if (boxIntersectsBox(getWorldBox(p_other), orig_box)) collision_list.insert(p_other);
  }
  return collision_list;
}

ObjectList Grid::getObjects(CellKey key) const {
  if (!m_grid) {
    LogManager::getInstance().writeLog("Grid::getObjects(): Error! grid is NULL");
    return ObjectList();
  }
  if (key.second >= 0 && key.second < m_num_cols && key.first >= 0 && key.first < m_num_rows)
    return m_grid[key.first][key.second];
  return m_out_of_bounds;
}

std::string Grid::toString() const {
  if (!m_grid) return "";
  auto listed = [](const ObjectList& list) {
    std::string text;
    ObjectList copy = list;
    for (ObjectListIterator it(&copy); !it.isDone(); it.next())
      text += " " + it.currentObject()->getType() + "(" + ot::toString(it.currentObject()->getId()) + ")";
    return text;
  };
  std::string text = "GRID\n";
  text += "dimensions: (" + ot::toString(m_cell_width) + "," + ot::toString(m_cell_height) + ")\n";
  for (int row = 0; row < m_num_rows; row++) {
    for (int col = 0; col < m_num_cols; col++) {
      const ObjectList& cell = m_grid[row][col];
      text += "Cell (" + ot::toString(col) + "," + ot::toString(row) +
              "): count=" + ot::toString(cell.getCount()) + "\n";
      if (!cell.isEmpty()) text += listed(cell) + "\n";
    }
  }
  text += "Out of bounds: count=" + ot::toString(m_out_of_bounds.getCount());
  if (!m_out_of_bounds.isEmpty()) text += "\n" + listed(m_out_of_bounds);
  return text;
}

}  // namespace ot
