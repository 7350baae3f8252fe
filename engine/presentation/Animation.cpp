#include "engine/presentation/Animation.h"

#include "engine/core/LogManager.h"
#include "engine/core/Utility.h"
#include "engine/presentation/Sprite.h"

namespace ot {

void Animation::setSprite(Sprite* p_sprite) {
  if (p_sprite) setName(p_sprite->getLabel());
  m_sprite = p_sprite;
  setIndex(0);
  setSlowdownCount(0);
  m_dirty = true;
}

void Animation::setName(std::string name) {
  if (name == m_name) return;
  m_name = std::move(name);
  m_dirty = true;
}

void Animation::setIndex(int index) {
  if (index == m_index) return;
  m_index = index;
  m_dirty = true;
}

void Animation::setSlowdownCount(int slowdown_count) {
  if (slowdown_count == m_slowdown_count) return;
  m_slowdown_count = slowdown_count;
  m_dirty = true;
}

void Animation::setTransform(Transform transform) {
  if (transform < NONE || transform > BOTH) {
    LogManager::getInstance().writeLog("Animation::setTransform(): Error! Unknown transform %d. Ignoring.",
                                       transform);
    return;
  }
  if (transform == m_transform) return;
  m_transform = transform;
  m_dirty = true;
}

int Animation::draw(Vector position) {
  if (!m_sprite) return 0;
  int result = m_sprite->draw(m_index, position, m_sprite->getTransparency(), m_transform);
  if (m_slowdown_count == -1) return result;  // frozen
  setSlowdownCount(m_slowdown_count + 1);
  if (m_slowdown_count < m_sprite->getSlowdown()) return result;
  setSlowdownCount(0);
  setIndex(m_index + 1);
  if (m_index >= m_sprite->getFrameCount()) setIndex(0);
  return result;
}

Box Animation::getBox() const {
  if (!m_sprite) return Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f);
  float w = static_cast<float>(m_sprite->getWidth());
  float h = static_cast<float>(m_sprite->getHeight());
  return Box(Vector(-1 * w / 2, -1 * h / 2), w, h);
}

bool Animation::operator==(const Animation& other) const {
  // Kept quirk: the transform isn't compared and the dirty flag is; objects compare so.
  return m_sprite == other.m_sprite && m_index == other.m_index &&
         m_slowdown_count == other.m_slowdown_count && m_name == other.m_name && m_dirty == other.m_dirty;
}

bool Animation::operator!=(const Animation& other) const { return !(*this == other); }

int Animation::serialize(std::stringstream* p_ss) const {
  writeString(p_ss, m_name);
  writeRaw(p_ss, m_index);
  writeRaw(p_ss, m_slowdown_count);
  writeRaw(p_ss, m_transform);
  return checkStream("Animation::serialize()", p_ss);
}

int Animation::deserialize(std::stringstream* p_ss) {
  std::uint64_t length = 0;
  readRaw(p_ss, &length);
  if (readStringBytes(p_ss, length, &m_name) != 0) {
    LogManager::getInstance().writeLog("Animation::deserialize(): Error! Cannot allocate %d bytes.",
                                       static_cast<int>(length + 1));
    return -1;
  }
  readRaw(p_ss, &m_index);
  readRaw(p_ss, &m_slowdown_count);
  readRaw(p_ss, &m_transform);
  return checkStream("Animation::deserialize()", p_ss);
}

std::string Animation::toString() const {
  return "sprite " + m_name + ", frame_idx " + ot::toString(m_index) + ", slowdown_count " +
         ot::toString(m_slowdown_count) + ", transform " + ot::toString(m_transform);
}

}  // namespace ot
