#include "engine/world/WorldManager.h"

#include <utility>

#include "engine/core/EventLabels.h"
#include "engine/core/LogManager.h"
#include "engine/core/ObjectListIterator.h"
#include "engine/presentation/ViewObject.h"
#include "engine/world/Geometry.h"
#include "engine/world/Object.h"

namespace ot {

WorldManager::WorldManager() { setType("WorldManager"); }

WorldManager& WorldManager::getInstance() {
  static WorldManager world_manager;
  return world_manager;
}

bool WorldManager::isValid(const std::string& event_type) const {
  LogManager& log = LogManager::getInstance();
  if (event_type == KEYBOARD_EVENT || event_type == MOUSE_EVENT || event_type == STEP_EVENT) {
    log.writeLog("WorldManager::isValid(): WorldManager does not handle %s", event_type.c_str());
    return false;
  }
  if (event_type == OUT_EVENT || event_type == COLLISION_EVENT) {
    log.writeLog("WorldManager::isValid(): Event %s handled automatically.", event_type.c_str());
    return false;
  }
  return true;
}

int WorldManager::startUp() {
  LogManager& log = LogManager::getInstance();
  if (refuseSecondStart()) return -1;
  m_deletions.clear();
  m_boundary = Box();
  m_view = Box();
  m_view_slack = Vector(0, 0);
  m_p_view_following = nullptr;
  if (m_scene_graph.startUp() == -1) {
    log.writeLog("WorldManager::startUp(): Error! Unable to startup Scenegraph");
    return -1;
  }
  Manager::startUp();
  log.writeLog(LOG_DETAIL, "WorldManager::startUp(): successfully started.");
  return 0;
}

void WorldManager::shutDown() {
  // Not started while the objects die, so nothing new gets in.
  Manager::shutDown();
  ObjectList all = getAllObjects(true);
  for (ObjectListIterator it(&all); !it.isDone(); it.next()) delete it.currentObject();
  m_scene_graph.shutDown();
  LogManager::getInstance().writeLog(LOG_DETAIL, "WorldManager::shutDown(): Successfully stopped.");
}

int WorldManager::insertObject(Object* p_o) {
  if (!isStarted()) {
    LogManager& log = LogManager::getInstance();
    log.writeLog(LOG_NOTICE, "WorldManager::insertObject(): Warning! Not adding Object %d", p_o->getId());
    log.writeLog(LOG_NOTICE, "                              because WorldManager not started.");
    return -1;
  }
  return m_scene_graph.insertObject(p_o);
}

int WorldManager::removeObject(Object* p_o) { return m_scene_graph.removeObject(p_o); }

ObjectList WorldManager::getAllObjects(bool inactive) const {
  if (inactive) return m_scene_graph.activeObjects() + m_scene_graph.inactiveObjects();
  return m_scene_graph.activeObjects();
}

Object* WorldManager::objectWithId(int id) const {
  ObjectList all = getAllObjects(true);
  for (ObjectListIterator it(&all); !it.isDone(); it.next()) {
    if (it.currentObject()->getId() == id) return it.currentObject();
  }
  return nullptr;
}

ObjectList WorldManager::objectsAtPosition(Vector where) const {
  return objectsInBox(Box(where - Vector(0.5f, 0.5f), 0.99f, 0.99f));
}

template <typename Touches>
ObjectList WorldManager::activeObjectsWhere(Touches touches) const {
  ObjectList found;
  ObjectList active = m_scene_graph.activeObjects();
  for (ObjectListIterator it(&active); !it.isDone(); it.next()) {
    if (touches(getWorldBox(it.currentObject()))) found.insert(it.currentObject());
  }
  return found;
}

ObjectList WorldManager::objectsInBox(Box box) const {
  return activeObjectsWhere([&](const Box& world_box) { return boxIntersectsBox(world_box, box); });
}

ObjectList WorldManager::objectsInCircle(Circle circle) const {
  return activeObjectsWhere([&](const Box& world_box) { return circleIntersectsBox(circle, world_box); });
}

ObjectList WorldManager::objectsOnLine(Line line) const {
  return activeObjectsWhere([&](const Box& world_box) { return lineIntersectsBox(line, world_box); });
}

ObjectList WorldManager::objectsOfType(const std::string& type) const {
  return m_scene_graph.objectsOfType(type);
}

ObjectList WorldManager::getCollisions(Object* p_o, Vector where) const {
  return m_scene_graph.getCollisions(p_o, where);
}

int WorldManager::markForDelete(Object* p_o) {
  for (ObjectListIterator it(&m_deletions); !it.isDone(); it.next()) {
    if (it.currentObject() == p_o) return 0;
  }
  if (m_deletions.insert(p_o) == -1) {
    LogManager::getInstance().writeLog(
        "WorldManager::markForDelete(): Error! unable to add Object %p to deletions list",
        static_cast<void*>(p_o));
    return -1;
  }
  return 0;
}

int WorldManager::markForDelete(const ObjectList& list) {
  int result = 0;
  for (ObjectListIterator it(&list); !it.isDone(); it.next()) {
    if (markForDelete(it.currentObject()) == -1) result = -1;
  }
  return result;
}

void WorldManager::update() {
  // Objects made during this update wait for the next; marked ones still move.
  ObjectList objects = m_scene_graph.activeObjects();
  for (ObjectListIterator it(&objects); !it.isDone(); it.next()) {
    Object* p_o = it.currentObject();
    Vector new_pos = p_o->predictPosition();
    if (new_pos != p_o->getPosition()) moveObject(p_o, new_pos);
    p_o->followPath();
    p_o->applyAcceleration();
  }
  for (ObjectListIterator it(&m_deletions); !it.isDone(); it.next()) delete it.currentObject();
  m_deletions.clear();
}

void WorldManager::draw() {
  for (int altitude = 0; altitude <= MAX_ALTITUDE; altitude++) {
    ObjectList objects = m_scene_graph.visibleObjects(altitude);
    for (ObjectListIterator it(&objects); !it.isDone(); it.next()) {
      Object* p_o = it.currentObject();
      // View objects stand in view coordinates, so the view test doesn't apply.
      if (boxIntersectsBox(getWorldBox(p_o), m_view) || dynamic_cast<ViewObject*>(p_o)) p_o->draw();
    }
  }
}

void WorldManager::setBoundary(Box boundary) {
  if (boundary == m_boundary) return;
  m_boundary = boundary;
  // The grid's size depends on the boundary; objects already in it drop out.
  m_scene_graph.shutDown();
  m_scene_graph.startUp();
}

void WorldManager::setViewPosition(Vector where) {
  float x = where.getX() - m_view.getHorizontal() / 2;
  if (x + m_view.getHorizontal() > m_boundary.getHorizontal())
    x = m_boundary.getHorizontal() - m_view.getHorizontal();
  if (x < 0) x = 0;
  float y = where.getY() - m_view.getVertical() / 2;
  if (y + m_view.getVertical() > m_boundary.getVertical())
    y = m_boundary.getVertical() - m_view.getVertical();
  if (y < 0) y = 0;
  m_view.setCorner(Vector(x, y));
}

int WorldManager::setViewFollowing(Object* p_o) {
  if (!p_o) {
    m_p_view_following = nullptr;
    return 0;
  }
  ObjectList all = getAllObjects(true);
  for (ObjectListIterator it(&all); !it.isDone(); it.next()) {
    if (it.currentObject() == p_o) {
      m_p_view_following = p_o;
      setViewPosition(p_o->getPosition());
      return 0;
    }
  }
  return -1;
}

void WorldManager::setViewSlack(Vector slack) {
  if (slack.getX() < 0 || slack.getX() > 1 || slack.getY() < 0 || slack.getY() > 1)
    LogManager::getInstance().writeLog(
        "WorldManager::setViewSlack(): Warning! view slack units out of range [0-1]");
  m_view_slack = slack;
}

}  // namespace ot
