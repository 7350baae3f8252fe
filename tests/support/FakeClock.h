#pragma once

namespace ot_test {

// While alive, the engine's clock reads a time that moves only when a test
// advances it, and the game loop's sleep returns at once, advancing that time
// by what it was asked to sleep (plus any oversleep set).
class FakeClock {
 public:
  FakeClock();
  ~FakeClock();
  FakeClock(const FakeClock&) = delete;
  FakeClock& operator=(const FakeClock&) = delete;

  // Moves the time on by this many milliseconds.
  static void advance(int milliseconds);
  // Each later sleep lasts this many milliseconds longer than asked.
  static void setOversleep(int milliseconds);
  // Sleeps so far, and the length asked of the last one.
  static int sleepCount();
  static long lastSleep();
  // Sets game over after this many more sleeps, that is frames; 0 never.
  static void stopAfterSleeps(int sleeps);
};

}  // namespace ot_test
