#include "tests/support/FakeClock.h"

#include <cstdint>

#include "engine/core/Clock.h"
#include "engine/core/GameManager.h"

namespace ot_test {

namespace {

// Milliseconds since the first of the month, 00:00 UTC.
std::int64_t g_now_ms = 0;
int g_oversleep_ms = 0;
int g_sleep_count = 0;
long g_last_sleep = 0;
int g_stop_after = 0;

ot::platform::SystemTime fakeTime() {
  ot::platform::SystemTime t;
  std::int64_t ms = g_now_ms;
  t.wMilliseconds = static_cast<unsigned short>(ms % 1000);
  t.wSecond = static_cast<unsigned short>(ms / 1000 % 60);
  t.wMinute = static_cast<unsigned short>(ms / 60000 % 60);
  t.wHour = static_cast<unsigned short>(ms / 3600000 % 24);
  t.wDay = static_cast<unsigned short>(1 + ms / 86400000);
  return t;
}

void fakeSleep(long milliseconds) {
  g_sleep_count++;
  g_last_sleep = milliseconds;
  g_now_ms += milliseconds + g_oversleep_ms;
  if (g_stop_after > 0 && --g_stop_after == 0) ot::GameManager::getInstance().setGameOver(true);
}

}  // namespace

FakeClock::FakeClock() {
  g_now_ms = 0;
  g_oversleep_ms = 0;
  g_sleep_count = 0;
  g_last_sleep = 0;
  g_stop_after = 0;
  ot::Clock::setTimeSource(fakeTime);
  ot::GameManager::setSleepFunction(fakeSleep);
}

FakeClock::~FakeClock() {
  ot::Clock::setTimeSource(nullptr);
  ot::GameManager::setSleepFunction(nullptr);
}

void FakeClock::advance(int milliseconds) { g_now_ms += milliseconds; }

void FakeClock::setOversleep(int milliseconds) { g_oversleep_ms = milliseconds; }

int FakeClock::sleepCount() { return g_sleep_count; }

long FakeClock::lastSleep() { return g_last_sleep; }

void FakeClock::stopAfterSleeps(int sleeps) { g_stop_after = sleeps; }

}  // namespace ot_test
