#include "engine/world/SceneGraph.h"

#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/world/Geometry.h"
#include "engine/world/Object.h"

namespace ot {

namespace {

bool altitudeInRange(int altitude) {
  return valueInRange(static_cast<float>(altitude), 0, static_cast<float>(MAX_ALTITUDE));
}

// Failures marked "guarded" are reported only while the game runs.
bool reportable(int result) { return result == -1 && !GameManager::getInstance().getGameOver(); }

}  // namespace

SceneGraph::~SceneGraph() { shutDown(); }

int SceneGraph::startUp() {
  m_type_map.clear();
  LogManager::getInstance().writeLog(LOG_INFO, "Scenegraph configuration: GRID");
  return m_grid.startUp();
}

void SceneGraph::shutDown() {
  m_type_map.clear();
  m_grid.shutDown();
}

int SceneGraph::insertObject(Object* p_o) {
  if (!p_o->isActive()) return m_inactive_objects.insert(p_o);
  LogManager& log = LogManager::getInstance();
  if (m_objects.insert(p_o) == -1) {
    log.writeLog("SceneGraph::insertObject(): Error! unable to insert active Object (id %d)", p_o->getId());
    return -1;
  }
  ObjectList of_type = m_type_map[p_o->getType()];
  if (of_type.insert(p_o) == -1) {
    log.writeLog("SceneGraph::insertObject(): Error! unable to insert Object (id %d) into type map",
                 p_o->getId());
    return -1;
  }
  m_type_map[p_o->getType()] = of_type;
  if (p_o->isSolid()) {
    if (m_solid_objects.insert(p_o) == -1) {
      log.writeLog("SceneGraph::insertObject(): Error! unable to insert solid Object (id %d)", p_o->getId());
      return -1;
    }
    if (m_grid.insertObject(p_o) == -1) {
      log.writeLog("SceneGraph::insertObject(): Error! unable to add to Grid (id %d)", p_o->getId());
      return -1;
    }
  }
  if (p_o->isVisible()) {
    int altitude = p_o->getAltitude();
    if (!altitudeInRange(altitude)) {
      log.writeLog("SceneGraph::insertObject(): Warning! Altitude %d not in range [%d,%d]", altitude, 0,
                   MAX_ALTITUDE);
      return -1;
    }
    if (m_visible_objects[altitude].insert(p_o) == -1) {
      log.writeLog("SceneGraph::insertObject(): Error! unable to insert visible object (id %d)",
                   p_o->getId());
      return -1;
    }
  }
  return 0;
}

int SceneGraph::removeObject(Object* p_o) {
  // No step stops the following ones: the object leaves everything it can.
  int sum = 0;
  if (p_o->isActive()) {
    sum += m_objects.remove(p_o);
    ObjectList of_type = m_type_map[p_o->getType()];
    sum += of_type.remove(p_o);
    m_type_map[p_o->getType()] = of_type;
    if (p_o->isVisible()) {
      int altitude = p_o->getAltitude();
      if (altitudeInRange(altitude))
        sum += m_visible_objects[altitude].remove(p_o);
      else
        sum -= 1;
    }
    if (p_o->isSolid()) {
      sum += m_solid_objects.remove(p_o);
      sum += m_grid.removeObject(p_o);
    }
  } else {
    sum += m_inactive_objects.remove(p_o);
  }
  if (sum >= 0) return 0;
  LogManager::getInstance().writeLog(
      "SceneGraph::removeObject(): Error removing Object (id %d)! Pointer is %p.", p_o->getId(),
      static_cast<void*>(p_o));
  return -1;
}

ObjectList SceneGraph::visibleObjects(int altitude) const {
  if (!altitudeInRange(altitude)) {
    LogManager::getInstance().writeLog("SceneGraph::visibleObjects(): Warning! altitude %d not in [%d,%d].",
                                       altitude, 0, MAX_ALTITUDE);
    return ObjectList();
  }
  return m_visible_objects[altitude];
}

ObjectList SceneGraph::objectsOfType(const std::string& type) const { return m_type_map[type]; }

ObjectList SceneGraph::getCollisions(Object* p_o, Vector where) const {
  return m_grid.getCollisions(p_o, where);
}

int SceneGraph::updateActive(Object* p_o, bool active) {
  if (p_o->isActive() == active) return 0;
  LogManager& log = LogManager::getInstance();
  const char* type = nullptr;
  std::string type_name = p_o->getType();
  type = type_name.c_str();
  int result = 0;
  int altitude = p_o->getAltitude();
  ObjectList of_type = m_type_map[type_name];

  if (active) {
    if (reportable(m_objects.insert(p_o))) {
      log.writeLog("SceneGraph::updateActive(): insert Object (%s) failed for objects!", type);
      result = -1;
    }
    if (of_type.insert(p_o) == -1) {
      log.writeLog("SceneGraph::updateActive(): Error! insert Object (%s) failed for type map!", type);
      return -1;
    }
    m_type_map[type_name] = of_type;
    if (p_o->isVisible() && reportable(m_visible_objects[altitude].insert(p_o))) {
      log.writeLog("SceneGraph::updateActive(): insert Object (%s) failed for visible_objects!", type);
      result = -1;
    }
    if (p_o->isSolid()) {
      if (reportable(m_solid_objects.insert(p_o))) {
        log.writeLog("SceneGraph::updateActive(): insert object (%s) failed for solid_objects!", type);
        result = -1;
      }
      if (m_grid.insertObject(p_o) == -1) return -1;
    }
    if (reportable(m_inactive_objects.remove(p_o))) {
      log.writeLog("SceneGraph::updateActive(): remove object (%s) failed for inactive_objects!", type);
      result = -1;
    }
    return result;
  }

  if (reportable(m_objects.remove(p_o))) {
    log.writeLog("SceneGraph::updateActive(): remove object (%s) failed for objects!", type);
    result = -1;
  }
  result += of_type.remove(p_o);
  m_type_map[type_name] = of_type;
  if (p_o->isVisible() && reportable(m_visible_objects[altitude].remove(p_o))) {
    log.writeLog("SceneGraph::updateActive(): remove visible object (%s) failed for visible_objects!", type);
    result = -1;
  }
  if (p_o->isSolid()) {
    if (reportable(m_solid_objects.remove(p_o))) {
      log.writeLog("SceneGraph::updateActive(): remove object (%s) failed for solid_objects!", type);
      result = -1;
    }
    if (m_grid.removeObject(p_o) == -1) return -1;
  }
  if (reportable(m_inactive_objects.insert(p_o))) {
    log.writeLog("SceneGraph::updateActive(): insert object (%s) failed for inactive_objects!", type);
    result = -1;
  }
  return result;
}

int SceneGraph::updateAltitude(Object* p_o, int new_altitude) {
  if (!p_o->isActive()) return 0;
  LogManager& log = LogManager::getInstance();
  if (!altitudeInRange(new_altitude)) {
    log.writeLog("SceneGraph::updateAltitude(): New altitude %d not in [%d,%d]!  No update.", new_altitude, 0,
                 MAX_ALTITUDE);
    return -1;
  }
  int old_altitude = p_o->getAltitude();
  if (!altitudeInRange(old_altitude)) {
    log.writeLog(
        "SceneGraph::updateAltitude(): Old altitude %d not in [%d,%d]! This is unxepected. No update.",
        old_altitude, 0, MAX_ALTITUDE);
    return -1;
  }
  if (!p_o->isVisible()) return 0;
  int removed = m_visible_objects[old_altitude].remove(p_o);
  if (reportable(removed)) {
    log.writeLog("SceneGraph::updateAltitude(): remove from old altitude (%d) failed!", old_altitude);
    log.writeLog("\tObject: type %s, id %d, p %p", p_o->getType().c_str(), p_o->getId(),
                 static_cast<void*>(p_o));
    return -1;
  }
  if (m_visible_objects[new_altitude].insert(p_o) == -1) {
    log.writeLog("SceneGraph::updateAltitude()): insert visible object at altitude %d failed!", new_altitude);
    return -1;
  }
  return 0;
}

int SceneGraph::updatePosition(Object* p_o, Vector where) {
  if (!p_o->isSolid() || !p_o->isActive()) return 0;
  if (m_grid.updatePosition(p_o, where) == -1) {
    LogManager::getInstance().writeLog(
        "SceneGraph::updatePosition(): Error! Calling grid updatePosition (Object %d).", p_o->getId());
    return -1;
  }
  return 0;
}

int SceneGraph::updateSolidness(Object* p_o, Solidness new_solidness) {
  if (!p_o->isActive()) return 0;
  // Whether an object held is hard counts for readers of the grid, though
  // the grid itself doesn't change between HARD and SOFT.
  m_grid.noteChange();
  LogManager& log = LogManager::getInstance();
  if (p_o->isSolid() && new_solidness == SPECTRAL) {
    if (reportable(m_solid_objects.remove(p_o)))
      log.writeLog("SceneGraph::updateSolidness(): unable to remove solid object (%s)",
                   p_o->getType().c_str());
    if (m_grid.removeObject(p_o) == -1) return -1;
  }
  // A change between HARD and SOFT touches nothing.
  if (p_o->isSolid() || (new_solidness != HARD && new_solidness != SOFT)) return 0;
  if (reportable(m_solid_objects.insert(p_o))) {
    log.writeLog("SceneGraph::updateSolidness(): Error! unable to insert solid object");
    return -1;
  }
  log.writeLog(LOG_LINES, "SceneGraph::updateSolidness(): Adding to grid.");
  if (m_grid.insertObject(p_o) == -1) {
    log.writeLog("SceneGraph::updateSolidness(): Error! unable to insert solid object (%d) into grid",
                 p_o->getId());
    return -1;
  }
  return 0;
}

int SceneGraph::updateType(Object* p_o, const std::string& new_type) {
  // Kept quirk: unlike its siblings, this one doesn't look at isActive(), so
  // an inactive object's new type is stored and its failure logged.
  LogManager& log = LogManager::getInstance();
  std::string old_type = p_o->getType();
  ObjectList old_list = m_type_map[old_type];
  if (reportable(old_list.remove(p_o))) {
    log.writeLog("SceneGraph::updateType(): Error! Unable to remove Object (%d) type %s", p_o->getId(),
                 old_type.c_str());
    return -1;
  }
  m_type_map[old_type] = old_list;
  ObjectList new_list = m_type_map[new_type];
  if (reportable(new_list.insert(p_o))) {
    log.writeLog("SceneGraph::updateType(): Error! Unable to insert Object (%d) type %s", p_o->getId(),
                 old_type.c_str());
    return -1;
  }
  m_type_map[new_type] = new_list;
  return 0;
}

int SceneGraph::updateVisible(Object* p_o, bool visible) {
  if (!p_o->isActive()) return 0;
  if (p_o->isVisible() == visible) return 0;
  int altitude = p_o->getAltitude();
  if (p_o->isVisible()) {
    if (!reportable(m_visible_objects[altitude].remove(p_o))) return 0;
    LogManager::getInstance().writeLog("SceneGraph::updateVisible(): unable to remove visible object (%s)",
                                       p_o->getType().c_str());
    return -1;
  }
  if (!reportable(m_visible_objects[altitude].insert(p_o))) return 0;
  LogManager::getInstance().writeLog("SceneGraph::updateVisible(): unable to add visible object (%s)",
                                     p_o->getType().c_str());
  return -1;
}

}  // namespace ot
