#include "tests/support/FakeClock.h"

#include <cstdint>

#include "engine/core/Clock.h"
#include "engine/core/GameManager.h"

namespace ot_test {

namespace {

std::int64_t g_now_us = 0;
int g_oversleep_ms = 0;
int g_sleep_count = 0;
long g_last_sleep = 0;
int g_stop_after = 0;

std::int64_t fakeTime() { return g_now_us; }

void fakeSleep(long milliseconds) {
  g_sleep_count++;
  g_last_sleep = milliseconds;
  g_now_us += (milliseconds + g_oversleep_ms) * std::int64_t{1000};
  if (g_stop_after > 0 && --g_stop_after == 0) ot::GameManager::getInstance().setGameOver(true);
}

}  // namespace

FakeClock::FakeClock() {
  g_now_us = 0;
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

void FakeClock::advance(int milliseconds) { g_now_us += milliseconds * std::int64_t{1000}; }

void FakeClock::setTime(std::int64_t microseconds) { g_now_us = microseconds; }

std::int64_t FakeClock::time() { return g_now_us; }

void FakeClock::setOversleep(int milliseconds) { g_oversleep_ms = milliseconds; }

int FakeClock::sleepCount() { return g_sleep_count; }

long FakeClock::lastSleep() { return g_last_sleep; }

void FakeClock::stopAfterSleeps(int sleeps) { g_stop_after = sleeps; }

}  // namespace ot_test
