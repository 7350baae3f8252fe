#pragma once

#include "engine/core/Event.h"
#include "engine/core/Vector.h"

namespace ot {

class Object;

// Given to both sides when a move would make two solid objects touch. The
// first object is the one moving; the position is where it tried to go.
class EventCollision : public Event {
 public:
  EventCollision() { setType(COLLISION_EVENT); }
  EventCollision(Object* p_o1, Object* p_o2, Vector position)
      : m_pos(position), m_p_obj1(p_o1), m_p_obj2(p_o2) {
    setType(COLLISION_EVENT);
  }

  void setObject1(Object* p_new_o1) { m_p_obj1 = p_new_o1; }
  Object* getObject1() const { return m_p_obj1; }
  void setObject2(Object* p_new_o2) { m_p_obj2 = p_new_o2; }
  Object* getObject2() const { return m_p_obj2; }
  void setPosition(Vector new_pos) { m_pos = new_pos; }
  Vector getPosition() const { return m_pos; }

 private:
  Vector m_pos;
  Object* m_p_obj1 = nullptr;
  Object* m_p_obj2 = nullptr;
};

}  // namespace ot
