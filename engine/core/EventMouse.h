#pragma once

#include "engine/core/Event.h"
#include "engine/core/Vector.h"

namespace ot {

// A mouse action; the position is in spaces relative to the window.
class EventMouse : public Event {
 public:
  EventMouse() { setType(MOUSE_EVENT); }

  void setMouseAction(int new_mouse_action) { m_mouse_action = new_mouse_action; }
  int getMouseAction() const { return m_mouse_action; }
  void setMouseButton(int new_mouse_button) { m_mouse_button = new_mouse_button; }
  int getMouseButton() const { return m_mouse_button; }
  void setMousePosition(Vector new_mouse_xy) { m_mouse_xy = new_mouse_xy; }
  Vector getMousePosition() const { return m_mouse_xy; }

 private:
  int m_mouse_action = -1;
  int m_mouse_button = -1;
  Vector m_mouse_xy;
};

}  // namespace ot
