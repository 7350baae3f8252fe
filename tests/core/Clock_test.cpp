#include "engine/core/Clock.h"

#include <gtest/gtest.h>

#include "tests/support/FakeClock.h"

using ot::Clock;
using ot::platform::SystemTime;

namespace {

SystemTime at(int day, int hour, int minute, int second, int ms) {
  SystemTime t;
  t.wDay = static_cast<unsigned short>(day);
  t.wHour = static_cast<unsigned short>(hour);
  t.wMinute = static_cast<unsigned short>(minute);
  t.wSecond = static_cast<unsigned short>(second);
  t.wMilliseconds = static_cast<unsigned short>(ms);
  return t;
}

}  // namespace

TEST(Clock, ReadingWrapsIn32Bits) {
  // 86 400 000 000 microseconds of day 1 leave 500 654 080 after the wrap.
  EXPECT_EQ(500654080, Clock::reading(at(1, 0, 0, 0, 0)));
  EXPECT_EQ(500654080 + 1000, Clock::reading(at(1, 0, 0, 0, 1)));
  EXPECT_EQ(500654080 + 61000000, Clock::reading(at(1, 0, 1, 1, 0)));
  // Half an hour later the sum passes 2^31 and reads negative.
  EXPECT_EQ(-1994313216, Clock::reading(at(1, 0, 30, 0, 0)));
}

TEST(Clock, DeltaRestartsAndSplitDoesNot) {
  ot_test::FakeClock fake;
  Clock clock;
  ot_test::FakeClock::advance(7);
  EXPECT_EQ(7000, clock.split());
  EXPECT_EQ(7000, clock.split());
  EXPECT_EQ(7000, clock.delta());
  ot_test::FakeClock::advance(2);
  EXPECT_EQ(2000, clock.split());
}

TEST(Clock, DifferenceAcrossTheWrapIsHugelyNegative) {
  ot_test::FakeClock fake;
  ot_test::FakeClock::advance(1646829);  // the last millisecond before the reading turns negative
  Clock clock;
  ot_test::FakeClock::advance(1);
  EXPECT_EQ(1000 - (std::int64_t{1} << 32), clock.split());
}
