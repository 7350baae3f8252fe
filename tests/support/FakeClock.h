#pragma once

#include <cstdint>
#include <ostream>

namespace ot_test {

// Counter readings at which a clock held in 32 bits, or folded from the wall
// clock's date, would jump: 2^31 and 2^32 microseconds, and, on a counter
// that follows the wall clock, an instant where the folded reading went back
// 71.6 minutes and two month ends (forward after 30 days, back after 28).
struct ClockJump {
  const char* name;
  std::int64_t at;  // microseconds
};
inline constexpr ClockJump CLOCK_JUMPS[] = {
    {"Past2To31", std::int64_t{1} << 31},
    {"Past2To32", std::int64_t{1} << 32},
    {"WallClock20261124At173226_230Utc", 1795541546230000},
    {"WallClock20261201Utc", 1796083200000000},
    {"WallClock20270301Utc", 1803859200000000},
};
// Shown by name in test output.
inline void PrintTo(const ClockJump& jump, std::ostream* p_os) { *p_os << jump.name; }

// While alive, the engine's clock reads a microsecond counter, from 0, that
// moves only when a test advances it, and the game loop's sleep returns at
// once, advancing that counter by what it was asked to sleep (plus any
// oversleep set).
class FakeClock {
 public:
  FakeClock();
  ~FakeClock();
  FakeClock(const FakeClock&) = delete;
  FakeClock& operator=(const FakeClock&) = delete;

  // Moves the time on by this many milliseconds.
  static void advance(int milliseconds);
  // Puts the counter at this reading, and what it reads now.
  static void setTime(std::int64_t microseconds);
  static std::int64_t time();
  // Each later sleep lasts this many milliseconds longer than asked.
  static void setOversleep(int milliseconds);
  // Sleeps so far, and the length asked of the last one.
  static int sleepCount();
  static long lastSleep();
  // Sets game over after this many more sleeps, that is frames; 0 never.
  static void stopAfterSleeps(int sleeps);
};

}  // namespace ot_test
