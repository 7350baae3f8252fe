#include "engine/platform/Platform.h"

#include <gtest/gtest.h>

#include <cstdlib>
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
