#include "engine/platform/Platform.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <string>

using namespace ot::platform;

TEST(Platform, SystemTimeIsABrokenDownUtcTime) {
  SystemTime t = getSystemTime();
  EXPECT_GE(t.wDay, 1);
  EXPECT_LE(t.wDay, 31);
  EXPECT_LT(t.wHour, 24);
  EXPECT_LT(t.wMinute, 60);
  EXPECT_LT(t.wSecond, 61);
  EXPECT_LT(t.wMilliseconds, 1000);
}

TEST(Platform, TimerPeriodCallsSucceed) {
  EXPECT_NE(TIMERR_NOCANDO, timeBeginPeriod(1));
  EXPECT_NE(TIMERR_NOCANDO, timeEndPeriod(1));
}

TEST(Platform, WorkingDirectoryNeedsRoom) {
  char room[4096];
  EXPECT_TRUE(getWorkingDirectory(room, sizeof(room)));
  EXPECT_EQ('/', room[0]);
  char tiny[1];
  EXPECT_FALSE(getWorkingDirectory(tiny, sizeof(tiny)));
}

TEST(Platform, StopSignalsAreNotedNotFatal) {
  installStopSignals();
  EXPECT_FALSE(stopSignalled());
  raise(SIGINT);
  EXPECT_TRUE(stopSignalled());
  installStopSignals();  // a new installation forgets the old signal
  EXPECT_FALSE(stopSignalled());
  raise(SIGTERM);
  EXPECT_TRUE(stopSignalled());
  removeStopSignals();
}

TEST(Platform, DisplayFollowsTheEnvironment) {
  const char* p_saved = getenv("DISPLAY");
  std::string saved = p_saved ? p_saved : "";
  setenv("DISPLAY", "", 1);
  EXPECT_FALSE(displayAvailable());
  setenv("DISPLAY", ":99", 1);
  EXPECT_TRUE(displayAvailable());
  if (p_saved)
    setenv("DISPLAY", saved.c_str(), 1);
  else
    unsetenv("DISPLAY");
}
