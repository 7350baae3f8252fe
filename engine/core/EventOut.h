#pragma once

#include "engine/core/Event.h"

namespace ot {

// Given to an object on the move that takes it out of the world's boundary.
class EventOut : public Event {
 public:
  EventOut() { setType(OUT_EVENT); }
};

}  // namespace ot
