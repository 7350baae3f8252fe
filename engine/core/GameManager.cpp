#include "engine/core/GameManager.h"

#include <cstdlib>
#include <ctime>

#include "engine/core/Clock.h"
#include "engine/core/Config.h"
#include "engine/core/EventStep.h"
#include "engine/core/LogManager.h"
#include "engine/network/NetworkManager.h"
#include "engine/paths/PathManager.h"
#include "engine/platform/Platform.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/presentation/InputManager.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/presentation/SfmlErrors.h"
#include "engine/world/WorldManager.h"

namespace ot {

namespace {

GameManager::SleepFunction g_sleep = nullptr;

void sleepFor(long milliseconds) {
  if (g_sleep)
    g_sleep(milliseconds);
  else
    platform::sleepMilliseconds(milliseconds);
}

const char* const STARS = "****************************************************";

}  // namespace

GameManager::GameManager() { setType("GameManager"); }

GameManager& GameManager::getInstance() {
  static GameManager game_manager;
  return game_manager;
}

bool GameManager::isValid(const std::string& event_type) const { return event_type == STEP_EVENT; }

void GameManager::setSleepFunction(SleepFunction sleep) { g_sleep = sleep; }

int GameManager::startUp() {
  LogManager& log = LogManager::getInstance();
  if (refuseSecondStart()) return -1;
  // From here on a SIGINT or SIGTERM ends the run cleanly instead of the process.
  platform::installStopSignals();
  Config& config = Config::getInstance();
  config.loadConfig("");

  if (log.startUp()) {
    log.writeLog("GameManager::startUp(): Error! Starting log manager.");
    return -1;
  }
  logSfmlErrors();
  log.writeLog("%s", STARS);
  log.writeLog("** Ostrel version %.2f **", 4.25);
  log.writeLog("** Game engine started **");
  log.writeLog("%s", STARS);
  config.print();

  log.writeLog(LOG_INFO, "Working directory:");
  char directory[256];
  if (platform::getWorkingDirectory(directory, sizeof(directory)))
    log.writeLog(LOG_INFO, "  %s", directory);
  else
    log.writeLog(LOG_INFO, "  %s", "(full path too long)");
  log.writeLog(LOG_INFO, "Log Manager started.");

  m_frame_time = config.getFrameTime();
  log.writeLog(LOG_DETAIL, "GameManager::startUp(): frame time is %d milliseconds", m_frame_time);

  DisplayManager& display = DisplayManager::getInstance();
  if (display.startUp()) {
    log.writeLog("GameManager::startUp(): Error! Starting display manager.");
    return -1;
  }
  log.writeLog(LOG_INFO, "Display manager started.");

  if (InputManager::getInstance().startUp()) {
    log.writeLog("GameManager::startUp(): Error! Starting input manager.");
    return -1;
  }
  log.writeLog(LOG_INFO, "Input manager started.");

  if (config.getNetworking()) {
    if (NetworkManager::getInstance().startUp()) {
      log.writeLog("GameManager::startUp(): Error! Starting network manager.");
      return -1;
    }
    log.writeLog(LOG_INFO, "Network manager started.");
  }

  if (ResourceManager::getInstance().startUp()) {
    log.writeLog("GameManager::startUp(): Error! Starting resource manager.");
    return -1;
  }
  log.writeLog(LOG_INFO, "Resource manager started.");

  WorldManager& world = WorldManager::getInstance();
  if (world.startUp()) {
    log.writeLog("GameManager::startUp(): Error starting world manager.");
    return -1;
  }
  log.writeLog(LOG_INFO, "World manager started.");

  if (PathManager::getInstance().startUp()) {
    log.writeLog("GameManager::startUp(): Error starting path manager.");
    return -1;
  }
  log.writeLog(LOG_INFO, "Path manager started.");

  Box boundary(Vector(0, 0), static_cast<float>(display.getHorizontalChars()),
               static_cast<float>(display.getVerticalChars()));
  world.setBoundary(boundary);
  world.setView(boundary);
  world.setViewSlack(Vector(0.33333334f, 0.33333334f));

  int seed = config.getRandomSeed();
  if (seed == 0) seed = static_cast<int>(time(nullptr));
  // A configured -1 leaves the generator unseeded on purpose.
  if (seed != -1) {
    log.writeLog(LOG_DEBUG, "GameManager()::startUp(): srand() seed with %d", seed);
    srand(static_cast<unsigned int>(seed));
  }

  if (platform::timeBeginPeriod(1) == platform::TIMERR_NOCANDO)
    log.writeLog(LOG_INFO, "GameManager()::startUp(): Warning!  timeBeginPeriod() cannot accept 1 msec.");

  setGameOver(false);
  Manager::startUp();
  log.writeLog(LOG_INFO, "GameManager successfully started.");
  return 0;
}

void GameManager::shutDown() {
  LogManager& log = LogManager::getInstance();
  setGameOver(true);
  platform::removeStopSignals();
  if (platform::timeEndPeriod(1) == platform::TIMERR_NOCANDO)
    log.writeLog(LOG_INFO, "GameManager()::shutDown(): Warning! timeEndPeriod() cannot accept 1 msec.");

  PathManager& path = PathManager::getInstance();
  if (path.isStarted()) {
    path.shutDown();
    log.writeLog(LOG_INFO, "Path manager stopped");
  }
  WorldManager& world = WorldManager::getInstance();
  if (world.isStarted()) {
    world.shutDown();
    log.writeLog(LOG_INFO, "World manager stopped");
  }
  ResourceManager& resources = ResourceManager::getInstance();
  if (resources.isStarted()) {
    resources.shutDown();
    log.writeLog(LOG_INFO, "Resource manager stopped");
  }
  NetworkManager& network = NetworkManager::getInstance();
  if (Config::getInstance().getNetworking() && network.isStarted()) {
    network.shutDown();
    log.writeLog(LOG_INFO, "Network manager stopped");
  }
  InputManager& input = InputManager::getInstance();
  if (input.isStarted()) {
    input.shutDown();
    log.writeLog(LOG_INFO, "Input manager stopped");
  }
  DisplayManager& display = DisplayManager::getInstance();
  if (display.isStarted()) {
    display.shutDown();
    log.writeLog(LOG_INFO, "Display manager stopped");
  }
  restoreSfmlErrors();
  log.writeLog("%s", STARS);
  log.writeLog("** Game engine stopped **");
  if (log.isStarted()) log.shutDown();
  Manager::shutDown();
}

void GameManager::run() {
  Clock game_clock;
  std::int64_t adjust_time = 0;
  LogManager& log = LogManager::getInstance();
  log.writeLog(LOG_INFO, "GameManager::run(): starting game loop");
  setGameOver(false);
  m_step_count = 0;

  while (true) {
    // A SIGINT or SIGTERM ends the run as game over would.
    if (platform::stopSignalled()) setGameOver(true);
    if (m_game_over) break;

    game_clock.delta();
    EventStep s(m_step_count);
    onEvent(&s);

    DisplayManager::getInstance().swapBuffers();
    InputManager::getInstance().getInput();
    WorldManager& world = WorldManager::getInstance();
    world.update();
    world.draw();

    if (Config::getInstance().getNetworking()) {
      NetworkManager& network = NetworkManager::getInstance();
      if (network.isServer()) network.accept();
      if (network.isConnected(-1)) network.sendDelayed();
    }

    std::int64_t loop_time = game_clock.split();
    std::int32_t frame_micro = m_frame_time * 1000;
    int path_budget =
        static_cast<int>(0.95f * static_cast<float>(frame_micro - loop_time - adjust_time) / 1000.0f);
    PathManager::getInstance().cycle(path_budget);

    loop_time = game_clock.split();
    std::int64_t intended_sleep_time = frame_micro - loop_time - adjust_time;
    if (intended_sleep_time >= 1) {
      std::int64_t before_sleep = game_clock.split();
      sleepFor(static_cast<long>(intended_sleep_time / 1000));
      std::int64_t after_sleep = game_clock.split();
      // An oversleep is carried into the next frame; an undersleep is dropped.
      adjust_time = after_sleep - before_sleep - intended_sleep_time;
      if (adjust_time < 0) adjust_time = 0;
    } else {
      if (adjust_time == 0 && m_frame_time > 0 && m_step_count > 0)
        log.writeLog("GameManager::run(): Can't keep up! frame_time %d ms, split %d ms", m_frame_time,
                     static_cast<int>(loop_time / 1000));
      else
        adjust_time = 0;
    }
    m_step_count++;
  }
  log.writeLog(LOG_INFO, "GameManager::run(): end of game loop");
}

}  // namespace ot
