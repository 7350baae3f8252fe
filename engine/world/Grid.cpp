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
  Box boundary = WorldManager::getInstance().getBoundary();
  m_num_cols = static_cast<int>(ceilf(boundary.getHorizontal() / static_cast<float>(m_cell_width)));
  m_num_rows = static_cast<int>(ceilf(boundary.getVertical() / static_cast<float>(m_cell_height)));
  log.writeLog(5, "Grid::startUp(): m_num_cols %d, m_num_rows %d", m_num_cols, m_num_rows);

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

Grid::CellKey Grid::worldToCell(Vector p) const {
  int col = static_cast<int>(floorf(p.getX() / static_cast<float>(m_cell_width)));
  int row = static_cast<int>(floorf(p.getY() / static_cast<float>(m_cell_height)));
  return {row, col};
}

bool Grid::isInside(CellKey key) const {
  return key.second >= 0 && key.first >= 0 && key.second < m_num_cols && key.first < m_num_rows;
}

std::set<Grid::CellKey> Grid::getCells(Object* p_o, Vector where) const {
  Box box = getWorldBox(p_o, where);
  Vector ul = box.getCorner();
  // The far edge belongs to the box: one ending on a cell border takes the next cell too.
  Vector lr(ul.getX() + box.getHorizontal(), ul.getY() + box.getVertical());
  CellKey ul_cell = worldToCell(ul);
  CellKey lr_cell = worldToCell(lr);
  bool out_of_bounds = false;
  if (ul_cell.first < 0) {
    ul_cell.first = 0;
    out_of_bounds = true;
  }
  if (ul_cell.second < 0) {
    ul_cell.second = 0;
    out_of_bounds = true;
  }
  if (lr_cell.first >= m_num_rows) {
    lr_cell.first = m_num_rows - 1;
    out_of_bounds = true;
  }
  if (lr_cell.second >= m_num_cols) {
    lr_cell.second = m_num_cols - 1;
    out_of_bounds = true;
  }
  std::set<CellKey> cells;
  if (out_of_bounds) cells.insert(OUT_OF_BOUNDS);
  for (int row = ul_cell.first; row <= lr_cell.first; row++)
    for (int col = ul_cell.second; col <= lr_cell.second; col++) cells.insert({row, col});
  return cells;
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
