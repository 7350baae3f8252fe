#include "engine/world/Object.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

#include "engine/core/EventPath.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/core/Utility.h"
#include "engine/network/NetworkManager.h"
#include "engine/paths/PathFind.h"
#include "engine/paths/PathManager.h"
#include "engine/presentation/InputManager.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/world/Geometry.h"
#include "engine/world/WorldManager.h"

namespace ot {

namespace {

// Ids rise by one per object and are never reused, but for particles.
int g_next_id = 1;

bool isInputLabel(const std::string& label) { return label == KEYBOARD_EVENT || label == MOUSE_EVENT; }

bool isNetworkLabel(const std::string& label) {
  return label == NETWORK_EVENT || label == KEYBOARD_NETWORK_EVENT || label == MOUSE_NETWORK_EVENT ||
         label == CUSTOM_NETWORK_EVENT;
}

// The four labels that registration routes to the network but removal doesn't.
bool isNetworkObjectLabel(const std::string& label) {
  return label == NETWORK_CREATE_EVENT || label == NETWORK_DELETE_EVENT || label == NETWORK_GAME_OVER_EVENT ||
         label == NETWORK_SYNC_EVENT;
}

// The manager that delivers a label.
// Kept quirk: removal routes the network's object labels to the world, which
// has no row for them, so such an interest can't be removed; harmless, as the
// object stops hearing them when it is deleted.
Manager& managerFor(const std::string& label, bool registering) {
  if (isInputLabel(label)) return InputManager::getInstance();
  if (label == STEP_EVENT) return GameManager::getInstance();
  if (isNetworkLabel(label) || (registering && isNetworkObjectLabel(label)))
    return NetworkManager::getInstance();
  return WorldManager::getInstance();
}

}  // namespace

Object::Object() : m_id(g_next_id++) {
  m_shape.setType(SHAPE_UNDEFINED);
  if (WorldManager::getInstance().insertObject(this) != 0)
    LogManager::getInstance().writeLog("Object::Object(): Error! Unable to add %p to game world.",
                                       static_cast<void*>(this));
}

Object::~Object() {
  unregisterAll();
  dropPathFind();
  if (WorldManager::getInstance().removeObject(this) == -1)
    LogManager::getInstance().writeLog("Object::~Object(): Error! Unable to remove %p from game world.",
                                       static_cast<void*>(this));
}

void Object::giveBackId() { g_next_id--; }

void Object::setId(int id) {
  if (id == m_id) return;
  m_id = id;
  m_modified |= ID;
}

void Object::setType(const std::string& type) {
  WorldManager::getInstance().getSceneGraph().updateType(this, type);
  m_type = type;
  m_modified |= TYPE;
}

int Object::setPosition(Vector position) {
  if (position == m_position) return 0;
  WorldManager::getInstance().getSceneGraph().updatePosition(this, position);
  m_position = position;
  m_modified |= POSITION;
  return 0;
}

int Object::setSolidness(Solidness solidness) {
  if (solidness == m_solidness) return 0;
  if (solidness != HARD && solidness != SOFT && solidness != SPECTRAL) {
    LogManager::getInstance().writeLog(
        "Object::setSolidness(): Solidness %d not one of HARD, SOFT or SPECTRAL.", solidness);
    return -1;
  }
  if (WorldManager::getInstance().getSceneGraph().updateSolidness(this, solidness) == -1) return -1;
  m_solidness = solidness;
  m_modified |= SOLIDNESS;
  return 0;
}

void Object::setAvoidCollisions(bool avoid) {
  m_avoid_collisions = avoid;
  m_modified |= AVOID_COLLISIONS;
}

int Object::setAltitude(int altitude) {
  if (altitude == m_altitude) return 0;
  if (!valueInRange(static_cast<float>(altitude), 0, MAX_ALTITUDE)) {
    LogManager::getInstance().writeLog("Object::setAltitude(): Altitude %d not in range [%d,%d].  Ignored.",
                                       altitude, 0, MAX_ALTITUDE);
    return -1;
  }
  if (WorldManager::getInstance().getSceneGraph().updateAltitude(this, altitude) == -1) return -1;
  m_altitude = altitude;
  m_modified |= ALTITUDE;
  return 0;
}

void Object::setDirection(Vector direction) {
  // Kept quirk: stored as given and, unlike every other setter, with no
  // modified bit; the direction travels with the velocity.
  m_direction = direction;
}

void Object::setVelocity(Vector velocity) {
  m_speed = velocity.getMagnitude();
  velocity.normalize();
  m_direction = velocity;
  m_modified |= SPEED | DIRECTION;
}

void Object::setAcceleration(Vector acceleration) {
  m_acceleration = acceleration;
  m_modified |= ACCELERATION;
}

bool Object::isVisible() const { return m_is_visible; }

int Object::setActive(bool active) {
  if (active == m_is_active) return 0;
  if (WorldManager::getInstance().getSceneGraph().updateActive(this, active) < 0) return -1;
  m_is_active = active;
  m_modified |= ACTIVE;
  return 0;
}

int Object::setVisible(bool visible) {
  if (visible == isVisible()) return 0;
  if (WorldManager::getInstance().getSceneGraph().updateVisible(this, visible) == -1) return -1;
  m_is_visible = visible;
  m_modified |= VISIBLE;
  return 0;
}

void Object::setBox(Box box) {
  if (box == m_box) return;
  // The grid's cells depend on the box: leave the index, change, re-enter.
  SceneGraph& scene_graph = WorldManager::getInstance().getSceneGraph();
  scene_graph.removeObject(this);
  m_box = box;
  scene_graph.insertObject(this);
  m_modified |= BOX;
}

int Object::setSprite(const std::string& sprite_label) {
  Sprite* p_sprite = ResourceManager::getInstance().getSprite(sprite_label);
  if (!p_sprite) {
    LogManager::getInstance().writeLog("Object::setSprite(): Warning! Sprite '%s' not found",
                                       sprite_label.c_str());
    return -1;
  }
  // No animation bit of its own: only the box's.
  m_animation.setSprite(p_sprite);
  setBox(m_animation.getBox());
  return 0;
}

void Object::setAnimation(Animation animation, bool set_box) {
  m_animation = std::move(animation);
  m_modified |= ANIMATION;
  if (set_box) setBox(m_animation.getBox());
}

int Object::draw() {
  int result = m_animation.draw(getPosition());
  if (m_shape.getType() != SHAPE_UNDEFINED) m_shape.draw(getPosition());
  return result;
}

void Object::setShape(Shape shape) {
  m_shape = shape;
  m_modified |= SHAPE;
}

void Object::setFollowPath(bool follow_path) {
  m_follow_path = follow_path;
  if (!m_path.isDone()) aimAtPath();
  m_modified |= FOLLOW_PATH;
}

void Object::setNoSoft(bool no_soft) {
  m_no_soft = no_soft;
  m_modified |= NO_SOFT;
}

void Object::setSpeed(float speed) {
  m_speed = speed;
  m_modified |= SPEED;
}

Vector Object::getVelocity() const {
  Vector velocity = m_direction;
  velocity.scale(m_speed);
  return velocity;
}

Vector Object::predictPosition() const { return m_position + getVelocity(); }

bool Object::isSolid() const { return m_solidness == HARD || m_solidness == SOFT; }

void Object::setPath(Path path) {
  m_path = std::move(path);
  m_modified |= PATH;
}

int Object::registerInterest(const std::string& event_type) {
  if (getEventCount() == MAX_OBJ_EVENTS) {
    LogManager::getInstance().writeLog(
        "Object::registerInterest(): maximum (%d) reached, cannot register for event '%s'", MAX_OBJ_EVENTS,
        event_type.c_str());
    return -1;
  }
  if (managerFor(event_type, true).registerInterest(this, event_type) == -1) return -1;
  // Kept quirk: a repeated registration is stored a second time here, though
  // the manager holds it once; it counts against the limit.
  m_event_name.push_back(event_type);
  m_modified |= EVENTS;
  return 0;
}

int Object::unregisterInterest(const std::string& event_type) {
  auto found = std::find(m_event_name.begin(), m_event_name.end(), event_type);
  if (found == m_event_name.end()) {
    LogManager::getInstance().writeLog("Object::unregisterInterest(): event '%s' not previously registered",
                                       event_type.c_str());
    return -1;
  }
  if (managerFor(event_type, false).unregisterInterest(this, event_type) == -1) return -1;
  m_event_name.erase(found);
  m_modified |= EVENTS;
  return 0;
}

int Object::eventHandler(const Event* p_e) {
  if (p_e->getType() != PATH_EVENT) return 0;
  const EventPath* p_path_event = dynamic_cast<const EventPath*>(p_e);
  if (!p_path_event) {
    LogManager::getInstance().writeLog("Object::eventHandler(): Error! Dynamic cast to EventPath failed.");
    return 0;
  }
  if (p_path_event->getStatus() == PATH_FOUND) {
    setPath(p_path_event->getPath());
    setFollowPath(true);
  }
  dropPathFind();
  return 1;
}

void Object::unregisterAll() {
  // From the last place down, each label by value: unregistering erases the
  // first of its name, and one the manager refuses stays.
  for (int i = getEventCount() - 1; i >= 0; i--) {
    const std::string label = m_event_name[static_cast<size_t>(i)];
    unregisterInterest(label);
  }
}

void Object::dropPathFind() {
  if (!m_p_path_find) return;
  PathManager::getInstance().removeFind(m_p_path_find.get());
  m_p_path_find.reset();
}

void Object::pathTo(Vector target) {
  dropPathFind();
  m_p_path_find.reset(new (std::nothrow) PathFind(this, m_position, target));
  if (!m_p_path_find) {
    LogManager::getInstance().writeLog("Object::pathTo(): Error! Unable to allocate memory for PathFind.");
    return;
  }
  PathManager::getInstance().addFind(m_p_path_find.get());
  if (m_follow_path) {
    m_follow_path = false;
    m_modified |= FOLLOW_PATH;
  }
  setAvoidCollisions(true);
}

void Object::pathTo(Object* p_target) {
  if (!p_target) return;
  pathTo(p_target->getPosition());
  if (m_p_path_find)
    m_p_path_find->setTarget(p_target);
  else
    LogManager::getInstance().writeLog("Object::pathTo(): path find not allocated!");
}

void Object::applyAcceleration() {
  if (m_acceleration == Vector(0, 0)) return;
  setVelocity(getVelocity() + m_acceleration);
}

void Object::aimAtPath() {
  Vector direction = m_path.getCurrent() - m_position;
  direction.normalize();
  setDirection(direction);
}

void Object::followPath() {
  if (!m_follow_path) return;
  while (true) {
    if (m_path.isDone()) {
      setDirection(Vector(0, 0));
      setFollowPath(false);
      return;
    }
    Vector target = m_path.getCurrent();
    double threshold = static_cast<double>(3.0f * m_speed) / 4.0;
    if (distance(m_position, target) > threshold) break;
    // Arrived: snap to the node, which may pass several nodes in one step.
    setPosition(target);
    m_path++;
    m_modified |= PATH;
  }
  aimAtPath();
}

bool Object::operator==(const Object& other) const {
  if (m_id != other.m_id || m_type != other.m_type || m_is_active != other.m_is_active ||
      m_is_visible != other.m_is_visible || m_box != other.m_box || m_position != other.m_position ||
      m_direction != other.m_direction || !(m_speed == other.m_speed) ||
      m_acceleration != other.m_acceleration || m_altitude != other.m_altitude ||
      m_solidness != other.m_solidness || m_animation != other.m_animation || m_no_soft != other.m_no_soft ||
      m_event_name.size() != other.m_event_name.size() || m_shape != other.m_shape ||
      m_path != other.m_path || m_follow_path != other.m_follow_path ||
      m_avoid_collisions != other.m_avoid_collisions)
    return false;
  for (size_t i = 0; i < m_event_name.size(); i++) {
    if (m_event_name[i] != other.m_event_name[i]) return false;
  }
  return true;
}

std::string Object::toString() const {
  // Kept quirk: the no-soft value before its label, the event count after it
  // unnamed and no blank after "avoid"; log readers know them.
  return ot::toString(m_id) + ", " + m_type + ", " + m_position.toString() + ", active " +
         ot::toString(m_is_active) + ", visible " + ot::toString(m_is_visible) + ", [" + m_box.toString() +
         "], dir " + m_direction.toString() + ", speed " + ot::toString(m_speed) + ", accel " +
         m_acceleration.toString() + ", alt " + ot::toString(m_altitude) + ", " + ot::toString(m_solidness) +
         ", [ani " + m_animation.toString() + "], " + ot::toString(m_no_soft) + ", no soft " +
         ot::toString(getEventCount()) + ", [shape " + m_shape.toString() + "], [path " + m_path.toString() +
         ", follow " + ot::toString(m_follow_path) + ", avoid" + ot::toString(m_avoid_collisions) + "]";
}

}  // namespace ot
