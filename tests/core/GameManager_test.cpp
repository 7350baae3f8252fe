#include "engine/core/GameManager.h"

#include <gtest/gtest.h>

#include <unistd.h>
#include <csignal>
#include <cstdlib>

#include "engine/core/Config.h"
#include "engine/core/LogManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/FakeClock.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/LogReader.h"
#include "tests/support/SpyObject.h"

using ot::GameManager;
using ot_test::FakeClock;
using ot_test::logCount;
using ot_test::logHas;
using ot_test::readLogMessages;

namespace {

// Starts and stops the engine by hand, at a chosen log level.
class StartUp : public ::testing::Test {
 protected:
  void SetUp() override {
    setenv("OSTREL_LOG", ot_test::testLogPath().c_str(), 1);
    ot::Config::getInstance().reset();
    ot::LogManager::getInstance().setLogLevel(10);
    ot::LogManager::getInstance().setFlush(true);
  }
  void TearDown() override {
    if (GameManager::getInstance().isStarted()) GameManager::getInstance().shutDown();
    ot::LogManager::getInstance().setLogLevel(0);
    ot::LogManager::getInstance().setFlush(false);
  }
  int start(const std::string& config) {
    setenv("OSTREL_CONFIG", ot_test::writeTempFile("config.txt", config).c_str(), 1);
    return GameManager::getInstance().startUp();
  }
  // The messages from the first to the last given, which must appear in order.
  static void expectInOrder(const std::vector<std::string>& log, const std::vector<std::string>& lines) {
    size_t at = 0;
    for (const std::string& line : lines) {
      while (at < log.size() && log[at] != line) at++;
      ASSERT_LT(at, log.size()) << "missing or out of order: " << line;
      at++;
    }
  }
};

// A frame-by-frame engine run with the fake clock.
class Frames : public ot_test::HeadlessEngine {
 protected:
  FakeClock clock_;
};

}  // namespace

TEST_F(StartUp, StartsManagersInOrderAndStopsThemInReverse) {
  ASSERT_EQ(0, start("headless:true,\nnetworking:false,\nrandom_seed:7,\nframe_time:25,\n"));
  EXPECT_EQ(25, GameManager::getInstance().getFrameTime());
  EXPECT_FALSE(GameManager::getInstance().getGameOver());
  GameManager::getInstance().shutDown();
  EXPECT_TRUE(GameManager::getInstance().getGameOver());

  char cwd[256];
  ASSERT_NE(nullptr, getcwd(cwd, sizeof(cwd)));
  auto log = readLogMessages();
  const std::string stars = "****************************************************";
  ASSERT_GE(log.size(), 5u);
  EXPECT_EQ("LogManager::startUp(): successfully started.", log[0]);
  EXPECT_EQ(stars, log[1]);
  EXPECT_EQ("** Ostrel version 4.25 **", log[2]);
  EXPECT_EQ("** Game engine started **", log[3]);
  EXPECT_EQ(stars, log[4]);
  expectInOrder(log, {"Ostrel configuration:",
                      "  Frame time: 25",
                      "Working directory:",
                      std::string("  ") + cwd,
                      "Log Manager started.",
                      "GameManager::startUp(): frame time is 25 milliseconds",
                      "DisplayManager::startUp(): no graphics in headless mode.",
                      "Display manager started.",
                      "Input manager started.",
                      "Resource manager started.",
                      "World manager started.",
                      "Path manager started.",
                      "GameManager()::startUp(): srand() seed with 7",
                      "GameManager successfully started.",
                      "Path manager stopped",
                      "World manager stopped",
                      "Resource manager stopped",
                      "Input manager stopped",
                      "Display manager stopped",
                      stars,
                      "** Game engine stopped **"});
  EXPECT_FALSE(logHas(log, "Network manager started."));
  EXPECT_FALSE(logHas(log, "Network manager stopped"));
}

TEST_F(StartUp, SetsTheWorldToTheWindowInCharacters) {
  ASSERT_EQ(0, start("headless:true,\nnetworking:false,\nwindow_horizontal_chars:60,\n"
                     "window_vertical_chars:20,\n"));
  ot::WorldManager& world = ot::WorldManager::getInstance();
  EXPECT_EQ(ot::Box(ot::Vector(0, 0), 60, 20), world.getBoundary());
  EXPECT_EQ(world.getBoundary(), world.getView());
  EXPECT_EQ(ot::Vector(0.33333334f, 0.33333334f), world.getViewSlack());
}

TEST_F(StartUp, NetworkingStartsAndStopsTheNetworkManager) {
  ASSERT_EQ(0, start("headless:true,\nnetworking:true,\n"));
  GameManager::getInstance().shutDown();
  auto log = readLogMessages();
  expectInOrder(log, {"Resource manager started.", "Network manager stopped", "Input manager stopped"});
  expectInOrder(log, {"Input manager started.", "Network manager started.", "Resource manager started."});
}

TEST_F(StartUp, SecondStartIsRefused) {
  ASSERT_EQ(0, start("headless:true,\nnetworking:false,\n"));
  EXPECT_EQ(-1, GameManager::getInstance().startUp());
  EXPECT_TRUE(logHas(readLogMessages(), "GameManager::startup(): Warning! GameManager already started."));
}

TEST_F(StartUp, SeedOfMinusOneLeavesTheGeneratorAlone) {
  srand(99);
  int expected = rand();
  srand(99);
  ASSERT_EQ(0, start("headless:true,\nnetworking:false,\nrandom_seed:-1,\n"));
  EXPECT_EQ(expected, rand());
  for (const std::string& line : readLogMessages()) EXPECT_EQ(std::string::npos, line.find("srand()"));
}

TEST_F(StartUp, ZeroSeedTakesTheTime) {
  ASSERT_EQ(0, start("headless:true,\nnetworking:false,\nrandom_seed:0,\n"));
  int seeded = 0;
  for (const std::string& line : readLogMessages())
    if (line.rfind("GameManager()::startUp(): srand() seed with ", 0) == 0 &&
        line != "GameManager()::startUp(): srand() seed with 0")
      seeded++;
  EXPECT_EQ(1, seeded);
}

TEST_F(StartUp, FailedDisplayIsStoppedCleanly) {
  const char* p_display = getenv("DISPLAY");
  std::string saved = p_display ? p_display : "";
  unsetenv("DISPLAY");
  EXPECT_EQ(-1, start("headless:false,\nnetworking:false,\n"));
  GameManager::getInstance().shutDown();
  if (!saved.empty()) setenv("DISPLAY", saved.c_str(), 1);
  auto log = readLogMessages();
  EXPECT_TRUE(logHas(log, "GameManager::startUp(): Error! Starting display manager."));
  EXPECT_FALSE(logHas(log, "Input manager stopped"));
  EXPECT_FALSE(logHas(log, "Display manager stopped"));
  expectInOrder(log, {"GameManager::startUp(): Error! Starting display manager.",
                      "****************************************************", "** Game engine stopped **"});
  EXPECT_FALSE(GameManager::getInstance().isStarted());
}

TEST_F(Frames, StepCountRisesOncePerFrameAndEachFrameSleepsTheRest) {
  auto* p_spy = new ot_test::SpyObject;
  p_spy->registerInterest(ot::STEP_EVENT);
  FakeClock::stopAfterSleeps(4);
  GameManager::getInstance().run();
  EXPECT_EQ(4, GameManager::getInstance().getStepCount());
  EXPECT_EQ((std::vector<int>{0, 1, 2, 3}), p_spy->steps);
  EXPECT_EQ(4, FakeClock::sleepCount());
  EXPECT_EQ(33, FakeClock::lastSleep());
}

TEST_F(Frames, GameOverInAStepHandlerFinishesThatFrame) {
  auto* p_spy = new ot_test::SpyObject;
  p_spy->registerInterest(ot::STEP_EVENT);
  p_spy->on_event = [](ot_test::SpyObject& self, const ot::Event*) {
    if (self.steps.size() == 2) GameManager::getInstance().setGameOver(true);
  };
  GameManager::getInstance().run();
  EXPECT_EQ(2, GameManager::getInstance().getStepCount());
  EXPECT_EQ(2, FakeClock::sleepCount()) << "the frame that set game over still sleeps";

  // A second run starts afresh.
  p_spy->on_event = nullptr;
  FakeClock::stopAfterSleeps(3);
  GameManager::getInstance().run();
  EXPECT_EQ(3, GameManager::getInstance().getStepCount());
  EXPECT_EQ((std::vector<int>{0, 1, 0, 1, 2}), p_spy->steps);
}

TEST_F(Frames, LateFrameWarnsExceptTheFirst) {
  auto* p_spy = new ot_test::SpyObject;
  p_spy->registerInterest(ot::STEP_EVENT);
  p_spy->on_event = [](ot_test::SpyObject& self, const ot::Event*) {
    int step = self.steps.back();
    if (step == 0 || step == 2) FakeClock::advance(50);
    if (step == 3) GameManager::getInstance().setGameOver(true);
  };
  GameManager::getInstance().run();
  auto log = logMessages();
  EXPECT_EQ(1, logCount(log, "GameManager::run(): Can't keep up! frame_time 33 ms, split 50 ms"));
  EXPECT_EQ(2, FakeClock::sleepCount()) << "late frames don't sleep";
}

TEST_F(Frames, OversleepShortensTheNextFrame) {
  FakeClock::setOversleep(5);
  FakeClock::stopAfterSleeps(2);
  GameManager::getInstance().run();
  EXPECT_EQ(28, FakeClock::lastSleep());
}

TEST_F(Frames, FrameTimeOfZeroNeverSleepsNorWarns) {
  setenv("OSTREL_CONFIG", ot_test::writeTempFile("config.txt", "headless:true,\nframe_time:0,\n").c_str(), 1);
  GameManager::getInstance().shutDown();
  ASSERT_EQ(0, GameManager::getInstance().startUp());
  ot::LogManager::getInstance().setFlush(true);
  auto* p_spy = new ot_test::SpyObject;
  p_spy->registerInterest(ot::STEP_EVENT);
  p_spy->on_event = [](ot_test::SpyObject& self, const ot::Event*) {
    FakeClock::advance(10);
    if (self.steps.size() == 5) GameManager::getInstance().setGameOver(true);
  };
  GameManager::getInstance().run();
  EXPECT_EQ(0, FakeClock::sleepCount());
  for (const std::string& line : logMessages()) EXPECT_EQ(std::string::npos, line.find("Can't keep up!"));
}

TEST_F(Frames, StopSignalEndsTheRunAtTheNextFrame) {
  auto* p_spy = new ot_test::SpyObject;
  p_spy->registerInterest(ot::STEP_EVENT);
  p_spy->on_event = [](ot_test::SpyObject& self, const ot::Event*) {
    if (self.steps.size() == 3) raise(SIGTERM);
  };
  GameManager::getInstance().run();
  EXPECT_EQ(3, GameManager::getInstance().getStepCount());
  EXPECT_TRUE(GameManager::getInstance().getGameOver());
}
