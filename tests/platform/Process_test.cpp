#include "engine/platform/Process.h"

#include <gtest/gtest.h>

using namespace ot::platform;

TEST(Process, ExitStatusComesBack) {
  int id = startProcess("/bin/sh", {"-c", "exit 3"});
  ASSERT_GT(id, 0);
  EXPECT_EQ(3, waitProcess(id));
  EXPECT_EQ(-1, waitProcess(id)) << "already waited for";
  EXPECT_EQ(-1, startProcess("/nonexistent/program", {}));
}
