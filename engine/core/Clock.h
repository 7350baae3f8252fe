#pragma once

#include <cstdint>

#include "engine/platform/Platform.h"

namespace ot {

// The loop's only time source: microseconds read from the UTC wall clock, as
// day of month, hours, minutes, seconds and milliseconds combined in 32-bit
// arithmetic. The reading wraps about every 71.6 minutes and at the end of a
// month; a frame that spans the wrap sleeps wrongly, and that is accepted.
class Clock {
 public:
  // Where readings come from; tests put a fake clock here.
  using TimeSource = platform::SystemTime (*)();

  Clock();

  // Microseconds since the last delta (or construction), and restarts.
  std::int64_t delta();
  // Microseconds since the last delta (or construction), without restarting.
  std::int64_t split() const;

  // The reading of one broken-down time, wrapped to 32 bits and sign-extended.
  static std::int64_t reading(const platform::SystemTime& time);
  // Replaces the system clock; null puts it back.
  static void setTimeSource(TimeSource source);

 private:
  static std::int64_t now();

  std::int64_t m_previous_time = 0;
};

}  // namespace ot
