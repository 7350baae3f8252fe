#pragma once

#include "engine/core/Event.h"

namespace ot {

// A key was pressed, released, or is held. Key codes and actions are the
// InputManager's.
class EventKeyboard : public Event {
 public:
  EventKeyboard() { setType(KEYBOARD_EVENT); }
  EventKeyboard(const EventKeyboard& other) = default;
  EventKeyboard& operator=(const EventKeyboard& other) = default;
  ~EventKeyboard() override = default;

  virtual void setKey(int new_key) { m_key_val = new_key; }
  virtual int getKey() const { return m_key_val; }
  virtual void setKeyboardAction(int new_action) { m_keyboard_action = new_action; }
  virtual int getKeyboardAction() const { return m_keyboard_action; }

 private:
  int m_key_val = -1;
  int m_keyboard_action = -1;
};

}  // namespace ot
