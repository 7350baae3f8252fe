#include "engine/core/Clock.h"

#include "engine/platform/Platform.h"

namespace ot {

namespace {

Clock::TimeSource g_time_source = nullptr;

}  // namespace

Clock::Clock() : m_previous_time(now()) {}

std::int64_t Clock::delta() {
  std::int64_t current = now();
  std::int64_t elapsed = current - m_previous_time;
  m_previous_time = current;
  return elapsed;
}

std::int64_t Clock::split() const { return now() - m_previous_time; }

void Clock::setTimeSource(TimeSource source) { g_time_source = source; }

std::int64_t Clock::now() { return g_time_source ? g_time_source() : platform::monotonicMicroseconds(); }

}  // namespace ot
