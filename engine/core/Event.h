#pragma once

#include <string>

#include "engine/core/EventLabels.h"

namespace ot {

// A message to an object: a small value carrying a type label. Delivery is a
// direct, synchronous call of the object's eventHandler; nothing is queued.
class Event {
 public:
  Event() = default;
  virtual ~Event() = default;

  void setType(std::string type) { m_event_type = std::move(type); }
  std::string getType() const { return m_event_type; }

 private:
  std::string m_event_type = UNDEFINED_EVENT;
};

}  // namespace ot
