#include "engine/core/Clock.h"

#include <gtest/gtest.h>

using ot::Clock;

TEST(Clock, ReadingWrapsIn32Bits) {
  // 86 400 000 000 microseconds of day 1 leave 500 654 080 after the wrap.
  EXPECT_EQ(500654080, Clock::reading({1, 0, 0, 0, 0}));
  // From half an hour into the month the sum passes 2^31 and reads negative.
  EXPECT_EQ(-1994313216, Clock::reading({1, 0, 30, 0, 0}));
  EXPECT_EQ(500654080 + 3661001000 - (std::int64_t{1} << 32), Clock::reading({1, 1, 1, 1, 1}));
}
