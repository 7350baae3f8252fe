#pragma once

#include "engine/core/Event.h"

namespace ot {

// Sent to every interested object at the start of each frame.
class EventStep : public Event {
 public:
  EventStep() { setType(STEP_EVENT); }
  explicit EventStep(int step_count) : m_step_count(step_count) { setType(STEP_EVENT); }

  void setStepCount(int step_count) { m_step_count = step_count; }
  int getStepCount() const { return m_step_count; }

 private:
  int m_step_count = 0;
};

}  // namespace ot
