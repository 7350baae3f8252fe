#include "engine/core/LogManager.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <regex>

#include "engine/core/Config.h"
#include "tests/support/LogReader.h"

using ot::LogManager;
using ot_test::logCount;
using ot_test::logHas;
using ot_test::readLogMessages;

namespace {

std::vector<std::string> rawLines(const std::string& path) {
  std::vector<std::string> lines;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

// The log started on this process's test file, stopped afterwards.
class LogFile : public ::testing::Test {
 protected:
  void SetUp() override {
    setenv("OSTREL_LOG", ot_test::testLogPath().c_str(), 1);
    ot::Config::getInstance().reset();
    ASSERT_EQ(0, log().startUp());
  }
  void TearDown() override {
    log().setLogLevel(0);
    log().setFlush(false);
    log().setLogTimeString(true);
    log().setLogStepCount(true);
    if (log().isStarted()) log().shutDown();
  }
  static LogManager& log() { return LogManager::getInstance(); }
};

}  // namespace

TEST_F(LogFile, LineIsTimeStepAndText) {
  EXPECT_EQ(8, log().writeLog("hello %d", 42));  // the count of the text alone
  log().flush();
  auto lines = rawLines(ot_test::testLogPath());
  ASSERT_FALSE(lines.empty());
  EXPECT_TRUE(std::regex_match(lines.back(), std::regex(R"(\d\d:\d\d:\d\d [ \d]{3}\d hello 42)")))
      << lines.back();
  log().setLogTimeString(false);
  log().writeLog("no time");
  log().setLogStepCount(false);
  log().writeLog("bare");
  log().flush();
  lines = rawLines(ot_test::testLogPath());
  EXPECT_TRUE(std::regex_match(lines[lines.size() - 2], std::regex(R"([ \d]{3}\d no time)")));
  EXPECT_EQ("bare", lines.back());
}

TEST_F(LogFile, LevelledLineDroppedAboveSetLevel) {
  EXPECT_EQ(0, log().writeLog(1, "dropped"));
  log().setLogLevel(1);
  log().writeLog(1, "kept at one");
  log().writeLog(2, "dropped at two");
  log().setLogLevel(2);
  log().flush();
  auto messages = readLogMessages();
  EXPECT_FALSE(logHas(messages, "dropped"));
  EXPECT_FALSE(logHas(messages, "dropped at two"));
  EXPECT_TRUE(logHas(messages, "kept at one"));
  EXPECT_FALSE(logHas(messages, "LogManager::setLogLevel(): log level 1"));
  EXPECT_TRUE(logHas(messages, "LogManager::setLogLevel(): log level 2"));
}

TEST_F(LogFile, FlushMakesEachLineVisibleAtOnce) {
  log().setFlush(true);
  log().writeLog("right away");
  EXPECT_TRUE(logHas(readLogMessages(), "right away"));
}

TEST_F(LogFile, SecondStartIsRefused) {
  log().setFlush(true);
  EXPECT_EQ(-1, log().startUp());
  EXPECT_TRUE(logHas(readLogMessages(), "LogManager::startup(): Warning! LogManager already started."));
}

TEST_F(LogFile, MyLogOpensANamedFileOnceAndIgnoresLevels) {
  std::string other = "/tmp/ostrel-test-" + std::to_string(getpid()) + "-mine.log";
  log().setLogLevel(5);
  log().writeMyLog(other, 99, "first %s", "line");
  log().writeMyLog(other, "second");
  log().setFlush(true);
  log().writeLog("sync");
  log().shutDown();  // closes the named file too
  EXPECT_EQ(1, logCount(readLogMessages(), "LogManager::writeMyLog()"));
  auto mine = readLogMessages(other);
  ASSERT_EQ(2u, mine.size());
  EXPECT_EQ("first line", mine[0]);
  EXPECT_EQ("second", mine[1]);
}

TEST_F(LogFile, MyLogUnderTheConfiguredNameWritesTheMainFile) {
  log().setFlush(true);
  log().writeMyLog(ot::Config::getInstance().getLogfile(), "to the main file");
  EXPECT_TRUE(logHas(readLogMessages(), "to the main file"));
}

TEST(LogManagerStart, UnwritablePathFailsWithItsMessage) {
  setenv("OSTREL_LOG", "/nonexistent-dir/x.log", 1);
  testing::internal::CaptureStderr();
  EXPECT_EQ(-1, LogManager::getInstance().startUp());
  std::string err = testing::internal::GetCapturedStderr();
  EXPECT_NE(std::string::npos,
            err.find("LogManager::startup(): Warning! Unable to open file '/nonexistent-dir/x.log'."));
  EXPECT_FALSE(LogManager::getInstance().isStarted());
}

TEST(LogManagerStart, LinesBeforeStartGoToStandardError) {
  testing::internal::CaptureStderr();
  LogManager::getInstance().writeLog("early bird");
  std::string err = testing::internal::GetCapturedStderr();
  EXPECT_TRUE(std::regex_search(err, std::regex(R"(\d\d:\d\d:\d\d [ \d]{3}\d early bird\n)"))) << err;
}
