#include "engine/core/LogManager.h"

#include <fstream>
#include <regex>

#include "engine/core/Config.h"
#include "engine/core/GameManager.h"
#include "tests/support/HeadlessEngine.h"

using namespace ot_test;
using Lines = std::vector<std::string>;

static ot::LogManager& logger() { return ot::LogManager::getInstance(); }

static Lines tail(size_t n, const std::string& path = testLogPath()) {
  Lines log = readLogMessages(path);
  return Lines(log.end() - std::min(n, log.size()), log.end());
}

class LogManagerTest : public HeadlessEngine {};

TEST_F(LogManagerTest, LinesArePrefixed) {
  EXPECT_EQ(8, logger().writeLog("hello %d", 42));
  std::ifstream file(testLogPath());
  std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  EXPECT_TRUE(std::regex_search(text, std::regex(R"(\n\d\d:\d\d:\d\d [ \d]{3}\d hello 42\n$)"))) << text;
}

TEST_F(LogManagerTest, DropsLinesAboveTheLevel) {
  logger().setFlush(false);
  EXPECT_EQ(0, logger().writeLog(1, "dropped"));
  logger().setLogLevel(1);
  logger().writeLog(1, "kept at one");
  logger().writeLog(2, "dropped at two");
  logger().setLogLevel(2);
  logger().setFlush(true);
  logger().writeLog("right away");
  EXPECT_EQ((Lines{"kept at one", "LogManager::setLogLevel(): log level 2", "right away"}), tail(3));
}

TEST_F(LogManagerTest, MyLogIgnoresTheLevel) {
  EXPECT_EQ(-1, logger().startUp());
  std::string mine = writeTempFile("mine.log", "");
  logger().setLogLevel(5);
  logger().writeMyLog(mine, 99, "first %s", "line");
  logger().setLogLevel(0);
  logger().writeMyLog(mine, "second");
  logger().writeMyLog(ot::Config::getInstance().getLogfile(), "main");  // though OSTREL_LOG names the file
  logger().writeMyLog("/nonexistent-dir/mine.log", "lost");
  logger().setLogLevel(5);
  logger().shutDown();
  EXPECT_EQ((Lines{"first line", "second"}), readLogMessages(mine));
  EXPECT_EQ(
      (Lines{"LogManager::startup(): Warning! LogManager already started.",
             "LogManager::setLogLevel(): log level 5", "LogManager::writeMyLog()", "main",
             "LogManager::startup(): Warning! Can't open file '/nonexistent-dir/mine.log'.", "",
             "LogManager::setLogLevel(): log level 5", "LogManager::shutDown(): successfully stopped."}),
      tail(8));
}

TEST(LogManager, BeforeStartUpWritesToStandardError) {
  setenv("OSTREL_LOG", "/nonexistent-dir/x.log", 1);
  testing::internal::CaptureStderr();
  logger().writeLog("early");
  EXPECT_EQ(-1, logger().startUp());
  std::string err =
      std::regex_replace(testing::internal::GetCapturedStderr(), std::regex(R"(\d\d:\d\d:\d\d)"), "T");
  int step = ot::GameManager::getInstance().getStepCount();  // 0 in a process of its own, as under ctest
  char expected[160];
  snprintf(
      expected, sizeof(expected),
      "T %4d early\nT %4d LogManager::startup(): Warning! Unable to open file '/nonexistent-dir/x.log'.\n",
      step, step);
  EXPECT_EQ(expected, err);
}
