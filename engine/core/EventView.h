#pragma once

#include <string>

#include "engine/core/Event.h"

namespace ot {

// A new value for the HUD items whose view string equals the tag: delta adds
// the value to what is shown, otherwise it replaces it.
class EventView : public Event {
 public:
  EventView() { setType(VIEW_EVENT); }
  EventView(std::string new_tag, int new_value, bool new_delta)
      : m_tag(std::move(new_tag)), m_value(new_value), m_delta(new_delta) {
    setType(VIEW_EVENT);
  }

  void setTag(std::string new_tag) { m_tag = std::move(new_tag); }
  std::string getTag() const { return m_tag; }
  void setValue(int new_value) { m_value = new_value; }
  int getValue() const { return m_value; }
  void setDelta(bool new_delta) { m_delta = new_delta; }
  bool getDelta() const { return m_delta; }

 private:
  std::string m_tag;
  int m_value = 0;
  bool m_delta = false;
};

}  // namespace ot
