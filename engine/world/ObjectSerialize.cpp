// Object's wire form: a mask of the attributes present, then each present
// attribute in a fixed order, which is not the order of the mask's bits.

#include <cstdint>
#include <cstdlib>

#include "engine/core/LogManager.h"
#include "engine/core/Utility.h"
#include "engine/world/Geometry.h"
#include "engine/world/Object.h"

namespace ot {

namespace {

const char* yesNo(bool value) { return value ? "true" : "false"; }

}  // namespace

bool Object::takeForWriting(unsigned int bit, unsigned int attr, unsigned int* p_modified) {
  if (!((attr == 0 && (*p_modified & bit)) || (attr & bit))) return false;
  *p_modified &= ~bit;
  return true;
}

int Object::serialize(std::stringstream* p_ss, unsigned int attr) {
  LogManager& log = LogManager::getInstance();
  log.writeLog(LOG_LINES, "Object::serialize(): attr is %u, modified is %u (%s)", attr, m_modified,
               yesNo(isModified()));
  log.writeLog(LOG_TRACE, "\t%s", toBinaryString(attr).c_str());
  writeRaw(p_ss, attr == 0 ? m_modified : attr);

  auto wanted = [&](unsigned int bit) { return takeForWriting(bit, attr, &m_modified); };
  if (wanted(ID)) {
    writeRaw(p_ss, m_id);
    log.writeLog(LOG_TRACE, "\tID: %d", m_id);
  }
  if (wanted(ACTIVE)) {
    writeRaw(p_ss, m_is_active);
    log.writeLog(LOG_TRACE, "\tACTIVE: %s", yesNo(m_is_active));
  }
  if (wanted(VISIBLE)) {
    writeRaw(p_ss, m_is_visible);
    log.writeLog(LOG_TRACE, "\tVISIBLE: %s", yesNo(m_is_visible));
  }
  if (wanted(EVENTS)) {
    const int count = getEventCount();
    log.writeLog(LOG_TRACE, "\tEVENTS: %d", count);
    writeRaw(p_ss, count);
    for (const std::string& name : m_event_name) {
      writeString(p_ss, name);
      log.writeLog(LOG_TRACE, "\t\t%s (size %d)", name.c_str(), static_cast<int>(name.size()));
    }
  }
  if (wanted(BOX)) {
    m_box.serialize(p_ss);
    log.writeLog(LOG_TRACE, "\tBOX: %s", m_box.toString().c_str());
  }
  if (wanted(POSITION)) {
    m_position.serialize(p_ss);
    log.writeLog(LOG_TRACE, "\tPOSITION: %s", m_position.toString().c_str());
  }
  if (wanted(TYPE)) {
    writeString(p_ss, m_type);
    log.writeLog(LOG_TRACE, "\tTYPE: %s", m_type.c_str());
  }
  if (wanted(ANIMATION)) {
    m_animation.serialize(p_ss);
    log.writeLog(LOG_TRACE, "\tANIMATION: %s", m_animation.toString().c_str());
  }
  if (wanted(ALTITUDE)) {
    writeRaw(p_ss, m_altitude);
    log.writeLog(LOG_TRACE, "\tALTITUDE: %d", m_altitude);
  }
  if (wanted(SOLIDNESS)) {
    writeRaw(p_ss, m_solidness);
    log.writeLog(LOG_TRACE, "\tSOLIDNESS: %s", ot::toString(m_solidness).c_str());
  }
  if (wanted(NO_SOFT)) {
    writeRaw(p_ss, m_no_soft);
    log.writeLog(LOG_TRACE, "\tNO_SOFT: %s", yesNo(m_no_soft));
  }
  if (wanted(DIRECTION)) {
    m_direction.serialize(p_ss);
    log.writeLog(LOG_TRACE, "\tDIRECTION: %s", m_direction.toString().c_str());
  }
  if (wanted(SPEED)) {
    writeRaw(p_ss, m_speed);
    log.writeLog(LOG_TRACE, "\tSPEED: %f", m_speed);
  }
  if (wanted(ACCELERATION)) {
    m_acceleration.serialize(p_ss);
    log.writeLog(LOG_TRACE, "\tACCELERATION: %s", m_acceleration.toString().c_str());
  }
  if (wanted(SHAPE)) {
    m_shape.serialize(p_ss);
    log.writeLog(LOG_TRACE, "\tSHAPE: %s", m_shape.toString().c_str());
  }
  if (wanted(FOLLOW_PATH)) {
    writeRaw(p_ss, m_follow_path);
    log.writeLog(LOG_TRACE, "\tFOLLOW_PATH: %s", yesNo(m_follow_path));
  }
  if (wanted(PATH)) {
    m_path.serialize(p_ss);
    log.writeLog(LOG_TRACE, "\tPATH: %s", m_path.toString().c_str());
  }
  if (wanted(AVOID_COLLISIONS)) {
    writeRaw(p_ss, m_avoid_collisions);
    // The line tells whether anything is left to send, not the flag.
    log.writeLog(LOG_TRACE, "\tAVOID_COLLISIONS: %s", yesNo(m_modified != 0));
  }
  return checkStream("Object::serialize()", p_ss);
}

int Object::deserialize(std::stringstream* p_ss, unsigned int* p_a) {
  LogManager& log = LogManager::getInstance();
  unsigned int local_attr = 0;
  if (!p_a) p_a = &local_attr;
  readRaw(p_ss, p_a);
  const unsigned int attr = *p_a;
  log.writeLog(LOG_LINES, "Object::deserialize(): attr %u (%s)", attr, toBinaryString(attr).c_str());

  if (attr & ID) {
    int id = readOver(p_ss, m_id);
    setId(id);
    log.writeLog(LOG_TRACE, "\tID: %d", id);
  }
  if (attr & ACTIVE) {
    bool active = readOver(p_ss, m_is_active);
    setActive(active);
    log.writeLog(LOG_TRACE, "\tACTIVE: %s", yesNo(active));
  }
  if (attr & VISIBLE) {
    bool visible = readOver(p_ss, m_is_visible);
    setVisible(visible);
    log.writeLog(LOG_TRACE, "\tVISIBLE: %s", yesNo(visible));
  }
  if (attr & EVENTS) {
    // The sender's interests replace the reader's own.
    unregisterAll();
    int count = 0;
    readRaw(p_ss, &count);
    log.writeLog(LOG_TRACE, "\tEVENTS: %d", count);
    for (int i = 0; i < count && p_ss->good(); i++) {
      std::uint64_t length = 0;
      readRaw(p_ss, &length);
      log.writeLog(LOG_TRACE, "\t\tsize %d", static_cast<int>(length));
      std::string label;
      if (readStringBytes(p_ss, length, &label) != 0) {
        log.writeLog("Object::deserialize(): Error! Cannot allocate %d bytes.", static_cast<int>(length + 1));
        continue;
      }
      if (p_ss->good() && registerInterest(label) != 0)
        log.writeLog("Object::deserialize(): Error! Register interest: %s", label.c_str());
    }
  }
  if (attr & BOX) {
    Box box = m_box;
    box.deserialize(p_ss);
    setBox(box);
    log.writeLog(LOG_TRACE, "\tBOX: %s", box.toString().c_str());
  }
  if (attr & POSITION) {
    Vector position = m_position;
    position.deserialize(p_ss);
    setPosition(position);
    log.writeLog(LOG_TRACE, "\tPOSITION: %s", position.toString().c_str());
  }
  if (attr & TYPE) {
    std::uint64_t length = 0;
    readRaw(p_ss, &length);
    std::string type = m_type;
    if (readStringBytes(p_ss, length, &type) != 0) {
      log.writeLog("Object::deserialize(): Error! Cannot allocate %d bytes.", static_cast<int>(length + 1));
      return -1;
    }
    setType(type);
    log.writeLog(LOG_TRACE, "\tTYPE: %s", type.c_str());
  }
  if (attr & ANIMATION) {
    Animation animation;
    animation.deserialize(p_ss);
    // The box came in its own field; a sprite found below brings its own.
    setAnimation(animation, false);
    // The sprite pointer doesn't travel: the reader finds its own by name,
    // keeping the play head that came with it.
    if (!animation.getName().empty()) {
      setSprite(animation.getName());
      Animation found = m_animation;
      found.setIndex(animation.getIndex());
      found.setSlowdownCount(animation.getSlowdownCount());
      setAnimation(found, false);
    }
    log.writeLog(LOG_TRACE, "\tANIMATION: %s", m_animation.toString().c_str());
  }
  if (attr & ALTITUDE) {
    int altitude = readOver(p_ss, m_altitude);
    setAltitude(altitude);
    log.writeLog(LOG_TRACE, "\tALTITUDE: %d", altitude);
  }
  if (attr & SOLIDNESS) {
    Solidness solidness = readOver(p_ss, m_solidness);
    setSolidness(solidness);
    log.writeLog(LOG_TRACE, "\tSOLIDNESS: %s", ot::toString(solidness).c_str());
  }
  if (attr & NO_SOFT) {
    bool no_soft = readOver(p_ss, m_no_soft);
    setNoSoft(no_soft);
    log.writeLog(LOG_TRACE, "\tNO_SOFT: %s", yesNo(no_soft));
  }
  if (attr & DIRECTION) {
    Vector direction = m_direction;
    direction.deserialize(p_ss);
    setDirection(direction);
    log.writeLog(LOG_TRACE, "\tDIRECTION: %s", direction.toString().c_str());
  }
  if (attr & SPEED) {
    float speed = readOver(p_ss, m_speed);
    setSpeed(speed);
    log.writeLog(LOG_TRACE, "\tSPEED: %f", speed);
  }
  if (attr & ACCELERATION) {
    Vector acceleration = m_acceleration;
    acceleration.deserialize(p_ss);
    setAcceleration(acceleration);
    log.writeLog(LOG_TRACE, "\tACCELERATION: %s", acceleration.toString().c_str());
  }
  if (attr & SHAPE) {
    Shape shape;
    shape.deserialize(p_ss);
    setShape(shape);
    log.writeLog(LOG_TRACE, "\tSHAPE: %s", shape.toString().c_str());
  }
  if (attr & FOLLOW_PATH) {
    bool follow_path = readOver(p_ss, m_follow_path);
    setFollowPath(follow_path);
    log.writeLog(LOG_TRACE, "\tFOLLOW_PATH: %s", yesNo(follow_path));
  }
  if (attr & PATH) {
    Path path;
    path.deserialize(p_ss);
    setPath(path);
    log.writeLog(LOG_TRACE, "\tPATH: %s", path.toString().c_str());
  }
  if (attr & AVOID_COLLISIONS) {
    bool avoid = readOver(p_ss, m_avoid_collisions);
    setAvoidCollisions(avoid);
    log.writeLog(LOG_TRACE, "\tAVOID_COLLISIONS: %s", yesNo(avoid));
  }
  // What was read is no change to send back.
  m_modified = 0;
  log.writeLog(LOG_LINES, "Object::deserialize(): done checking all types.");
  return checkStream("Object::deserialize()", p_ss);
}

}  // namespace ot
