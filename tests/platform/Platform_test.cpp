#include "engine/platform/Platform.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

using namespace ot::platform;

TEST(Platform, AnEmptyDisplayIsNone) {
  const char* p_saved = getenv("DISPLAY");
  std::string saved = p_saved ? p_saved : "";
  setenv("DISPLAY", "", 1);
  EXPECT_FALSE(displayAvailable());
  setenv("DISPLAY", ":99", 1);
  EXPECT_TRUE(displayAvailable());
  p_saved ? setenv("DISPLAY", saved.c_str(), 1) : unsetenv("DISPLAY");
}

TEST(Platform, CapturedStandardErrorIsReturned) {
  std::string inner;
  std::string outer = captureStandardError([&] {
    inner = captureStandardError([] {
      std::fprintf(stderr, "from stdio\n");
      EXPECT_EQ(8, write(2, "from fd\n", 8));
      std::cerr << "from cerr\n";
    });
    std::fprintf(stderr, "after");
  });
  EXPECT_EQ("from stdio\nfrom fd\nfrom cerr\n", inner);
  EXPECT_EQ("after", outer);
}

TEST(Platform, AnEnvironmentDefaultLeavesAValueAlreadySet) {
  unsetenv("OSTREL_TEST_DEFAULT");
  EXPECT_TRUE(setEnvironmentDefault("OSTREL_TEST_DEFAULT", "first"));
  EXPECT_TRUE(setEnvironmentDefault("OSTREL_TEST_DEFAULT", "second"));
  EXPECT_STREQ("first", getenv("OSTREL_TEST_DEFAULT"));
  unsetenv("OSTREL_TEST_DEFAULT");
}

TEST(Platform, ATimerPeriodIsGrantedFromOneMillisecondUp) {
  EXPECT_EQ(TIMERR_NOCANDO, timeBeginPeriod(0));
  EXPECT_EQ(TIMERR_NOCANDO, timeEndPeriod(0));
  EXPECT_EQ(0u, timeBeginPeriod(1));
  EXPECT_EQ(0u, timeEndPeriod(1));
}
