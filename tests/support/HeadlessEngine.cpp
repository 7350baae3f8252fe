#include "tests/support/HeadlessEngine.h"

#include <algorithm>
#include <cstdlib>

#include "engine/core/Config.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "tests/support/FakeClock.h"
#include "tests/support/LogReader.h"

namespace ot_test {

void HeadlessEngine::SetUp() {
  setenv("OSTREL_LOG", testLogPath().c_str(), 1);
  setenv("OSTREL_CONFIG", writeTempFile("config.txt", configText()).c_str(), 1);
  ot::Config::getInstance().reset();
  ASSERT_EQ(0, ot::GameManager::getInstance().startUp());
  ot::LogManager::getInstance().setFlush(true);
  ot::LogManager::getInstance().setLogLevel(logLevel());
}

void HeadlessEngine::TearDown() {
  ot::GameManager::getInstance().shutDown();
  ot::LogManager::getInstance().setLogLevel(0);
  ot::LogManager::getInstance().setFlush(false);
}

std::string HeadlessEngine::configText() const {
  return "headless:true,\nnetworking:false,\nrandom_seed:1,\n";
}

std::vector<std::string> HeadlessEngine::logMessages() const {
  ot::LogManager::getInstance().flush();
  return readLogMessages();
}

std::vector<std::string> HeadlessEngine::newLogMessages() {
  std::vector<std::string> log = logMessages();
  log.erase(log.begin(), log.begin() + static_cast<long>(std::min(m_log_seen, log.size())));
  m_log_seen += log.size();
  return log;
}

void runFrames(int n) {
  FakeClock clock;
  FakeClock::stopAfterSleeps(n);
  ot::GameManager::getInstance().run();
}

}  // namespace ot_test
