#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/LogReader.h"

namespace ot_test {

// Starts the whole engine headless, logging to this process's test log at
// the given level, and stops it afterwards. Tests get a world with a
// boundary of 80 by 24 cells, as the default window gives.
class HeadlessEngine : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Settings text for the start-up; headless and without networking unless a
  // test overrides it.
  virtual std::string configText() const;
  // The log level during the test.
  virtual int logLevel() const { return 0; }

  // The log's messages so far.
  std::vector<std::string> logMessages() const;
  // The log's messages written since the last call (at the first, all so far).
  std::vector<std::string> newLogMessages();

 private:
  size_t m_log_seen = 0;
};

// Runs the game loop for exactly n frames, without sleeping and with a clock
// that stands still (so that frames are never late).
void runFrames(int n);

}  // namespace ot_test
