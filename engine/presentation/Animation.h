#pragma once

#include <sstream>
#include <string>

#include "engine/core/Box.h"
#include "engine/core/Types.h"
#include "engine/core/Vector.h"

namespace ot {

class Sprite;

// One object's play head on a shared sprite, which it points at but doesn't
// own. Advances a frame every slowdown drawings; a slowdown count of -1
// freezes it.
class Animation {
 public:
  Animation() = default;

  // Starts the sprite from frame 0; null shows nothing.
  void setSprite(Sprite* p_sprite);
  Sprite* getSprite() const { return m_sprite; }
  void setName(std::string name);
  std::string getName() const { return m_name; }
  void setIndex(int index);
  int getIndex() const { return m_index; }
  void setSlowdownCount(int slowdown_count);
  int getSlowdownCount() const { return m_slowdown_count; }
  // Logs and ignores a value outside NONE to BOTH.
  void setTransform(Transform transform);
  Transform getTransform() const { return m_transform; }
  bool isDirty() const { return m_dirty; }

  // Draws the present frame, then advances; the drawing's result.
  int draw(Vector position);
  // The sprite's box around the centre, or just under one cell without a sprite.
  Box getBox() const;

  // Compares sprite, index, slowdown count, name and the dirty flag (not the
  // transform), as object comparison expects.
  bool operator==(const Animation& other) const;
  bool operator!=(const Animation& other) const;

  std::string toString() const;

  // Name, index, slowdown count, transform; the sprite is found again by name
  // by whoever reads it. The result of checkStream, or -1 when the name's
  // buffer can't be had.
  int serialize(std::stringstream* p_ss) const;
  int deserialize(std::stringstream* p_ss);

 private:
  Sprite* m_sprite = nullptr;
  int m_index = 0;
  int m_slowdown_count = 0;
  std::string m_name;
  Transform m_transform = NONE;
  bool m_dirty = true;  // set by every change, never cleared
};

}  // namespace ot
