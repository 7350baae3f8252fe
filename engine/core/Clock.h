#pragma once

#include <cstdint>

namespace ot {

// Departure: the loop's only time source is microseconds on the system's monotonic
// counter, not the wall clock. A wall-clock reading jumps when the clock is
// set, and one folded from the date into 32 bits wraps every 71.6 minutes; a
// frame spanning such a jump sleeps for as long. This counter does neither.
class Clock {
 public:
  // Where readings come from, in microseconds; tests put a fake clock here.
  using TimeSource = std::int64_t (*)();

  Clock();

  // Microseconds since the last delta (or construction), and restarts.
  std::int64_t delta();
  // Microseconds since the last delta (or construction), without restarting.
  std::int64_t split() const;

  // Replaces the monotonic counter; null puts it back.
  static void setTimeSource(TimeSource source);

 private:
  static std::int64_t now();

  std::int64_t m_previous_time = 0;
};

}  // namespace ot
