#include "engine/core/Clock.h"

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

std::int64_t Clock::reading(const platform::SystemTime& time) {
  // Unsigned 32-bit arithmetic wraps the way the design's signed arithmetic
  // does, without the undefined behaviour of signed overflow.
  std::uint32_t day = time.wDay, hour = time.wHour, minute = time.wMinute;
  std::uint32_t second = time.wSecond, millisecond = time.wMilliseconds;
  std::uint32_t micro = day * 24u * 60u * 60u * 1000000u + hour * 60u * 60u * 1000000u +
                        minute * 60u * 1000000u + second * 1000000u + millisecond * 1000u;
  return static_cast<std::int32_t>(micro);
}

void Clock::setTimeSource(TimeSource source) { g_time_source = source; }

std::int64_t Clock::now() { return reading(g_time_source ? g_time_source() : platform::getSystemTime()); }

}  // namespace ot
