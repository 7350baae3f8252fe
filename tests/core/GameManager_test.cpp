#include "engine/core/GameManager.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "engine/core/Config.h"
#include "engine/core/LogManager.h"
#include "engine/network/NetworkManager.h"
#include "engine/presentation/InputManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/FakeClock.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using ot::GameManager;
using namespace ot_test;

class GameManagerStartUp : public ::testing::Test {
 protected:
  void TearDown() override {
    if (GameManager::getInstance().isStarted()) GameManager::getInstance().shutDown();
    ot::LogManager::getInstance().setLogLevel(0);
  }
  static int start(const std::string& config, const std::string& display = "headless:true,") {
    setenv("OSTREL_LOG", testLogPath().c_str(), 1);
    setenv("OSTREL_CONFIG", writeTempFile("config.txt", display + config).c_str(), 1);
    ot::Config::getInstance().reset();
    ot::LogManager::getInstance().setLogLevel(10);
    return GameManager::getInstance().startUp();
  }
};

TEST_F(GameManagerStartUp, ManagersStopInReverseOrder) {
  ASSERT_EQ(0, start("random_seed:7,frame_time:25,window_horizontal_chars:60,window_vertical_chars:20,"));
  EXPECT_EQ(-1, GameManager::getInstance().startUp());
  ot::WorldManager& world = ot::WorldManager::getInstance();
  EXPECT_EQ(ot::Box(ot::Vector(0, 0), 60, 20), world.getBoundary());
  EXPECT_EQ(world.getBoundary(), world.getView());
  EXPECT_EQ(ot::Vector(0.33333334f, 0.33333334f), world.getViewSlack());
  GameManager::getInstance().shutDown();
  const std::string stars(52, '*');
  std::stringstream expected(
      "LogManager::startUp(): successfully started.|" + stars +
      "|** Ostrel version 4.25 **|** Game engine started **|" + stars +
      "|Ostrel configuration:|  Frame time: 25|Working directory:|Log Manager started."
      "|GameManager::startUp(): frame time is 25 milliseconds"
      "|Display manager started.|Input manager started.|Network manager started."
      "|Resource manager started.|World manager started.|Path manager started."
      "|GameManager()::startUp(): srand() seed with 7|GameManager successfully started."
      "|GameManager::startup(): Warning! GameManager already started."
      "|Path manager stopped|World manager stopped|Resource manager stopped"
      "|Network manager stopped|Input manager stopped|Display manager stopped|" +
      stars + "|** Game engine stopped **");
  auto log = readLogMessages();
  auto at = log.begin();
  for (std::string line; std::getline(expected, line, '|');) {
    at = std::find(at, log.end(), line);
    ASSERT_NE(log.end(), at) << "missing or out of order: " << line;
  }
  // A seed of -1 leaves the generator as it was.
  srand(99);
  int expected_draw = rand();
  srand(99);
  ASSERT_EQ(0, start("random_seed:-1,"));
  EXPECT_EQ(expected_draw, rand());
}

TEST_F(GameManagerStartUp, AFailedDisplayStopsTheStart) {
  // With or without an X display, a font that isn't there fails the display.
  ASSERT_EQ(-1, start("networking:false,font_file:/nonexistent/font.ttf,", "headless:false,"));
  GameManager::getInstance().shutDown();
  EXPECT_FALSE(ot::InputManager::getInstance().isStarted());
  EXPECT_FALSE(ot::NetworkManager::getInstance().isStarted());
  auto log = readLogMessages();
  EXPECT_TRUE(logHas(log, "GameManager::startUp(): Error! Starting display manager."));
  EXPECT_TRUE(logHas(log, "** Game engine stopped **"));
  for (const char* line : {"Display manager stopped", "Input manager stopped", "Network manager stopped"})
    EXPECT_FALSE(logHas(log, line)) << line;
  ASSERT_EQ(0, start("networking:false,"));
  EXPECT_FALSE(ot::NetworkManager::getInstance().isStarted());
}

class GameManagerRun : public HeadlessEngine {};

TEST_F(GameManagerRun, OnlyUnexcusedLateFramesWarn) {
  // Frame 0 is late but the first; 1 oversleeps, which shortens 2; 2 undersleeps, which is dropped;
  // 4 is late only through what 3 overslept: no warning, and nothing carried on; 6 is late and warns.
  const std::vector<int> busy = {50, 0, 0, 0, 0, 0, 50, 0}, oversleep = {0, 5, -4, 40, 0, 0, 0, 0};
  std::vector<int> slept;
  int seen = 0;
  FakeClock clock;
  auto* p_spy = new SpyObject;
  p_spy->registerInterest(ot::STEP_EVENT);
  p_spy->on_event = [&](SpyObject& self, const ot::Event*) {
    size_t frame = self.steps.size() - 1;
    if (frame > 0)
      slept.push_back(FakeClock::sleepCount() > seen ? static_cast<int>(FakeClock::lastSleep()) : 0);
    seen = FakeClock::sleepCount();
    if (frame == busy.size()) return GameManager::getInstance().setGameOver(true);
    FakeClock::advance(busy[frame]);
    FakeClock::setOversleep(oversleep[frame]);
  };
  GameManager::getInstance().run();
  EXPECT_EQ((std::vector<int>{0, 33, 28, 33, 0, 33, 0, 33}), slept);  // the sleeps asked, 0 for none
  EXPECT_EQ(seen + 1, FakeClock::sleepCount()) << "the frame that set game over still sleeps";
  EXPECT_EQ(9, GameManager::getInstance().getStepCount());
  auto log = logMessages();
  EXPECT_EQ(1, logCount(log, "GameManager::run(): Can't keep up! frame_time 33 ms, split 50 ms"));
  EXPECT_FALSE(logHas(log, "GameManager::run(): Can't keep up! frame_time 33 ms, split 0 ms"));
  p_spy->on_event = nullptr;
  runFrames(2);
  EXPECT_EQ((std::vector<int>{8, 0, 1}), std::vector<int>(p_spy->steps.end() - 3, p_spy->steps.end()));
}

class GameManagerClockJump : public HeadlessEngine,
                             public ::testing::WithParamInterface<ot_test::ClockJump> {};

TEST_P(GameManagerClockJump, FramesKeepTheirPeriod) {
  FakeClock clock;
  FakeClock::setTime(GetParam().at - 200000);  // the jump falls in the work of frame 6
  std::vector<std::int64_t> starts;
  auto* p_spy = new SpyObject;
  p_spy->registerInterest(ot::STEP_EVENT);
  p_spy->on_event = [&](SpyObject&, const ot::Event*) {
    starts.push_back(FakeClock::time());
    FakeClock::advance(10);
  };
  FakeClock::stopAfterSleeps(12);
  GameManager::getInstance().run();
  p_spy->on_event = nullptr;
  ASSERT_EQ(12u, starts.size());
  for (size_t i = 1; i < starts.size(); i++) EXPECT_EQ(33000, starts[i] - starts[i - 1]) << "frame " << i;
  EXPECT_EQ(23, FakeClock::lastSleep());
  for (const std::string& line : logMessages())
    EXPECT_EQ(std::string::npos, line.find("Can't keep up!")) << line;
}

INSTANTIATE_TEST_SUITE_P(ClockJumps, GameManagerClockJump, ::testing::ValuesIn(ot_test::CLOCK_JUMPS),
                         [](const ::testing::TestParamInfo<ot_test::ClockJump>& jump) {
                           return std::string(jump.param.name);
                         });
