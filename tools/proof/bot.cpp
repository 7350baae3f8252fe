// The real game in its window, played for a while by the window bot: it
// fights what comes, shops, takes the stairs, and starts the game anew
// whenever a run ends. A screenshot every 30 s goes to the folder, with each
// run's log; at the end every log is checked for errors.
//
//   ostrel-bot <game binary> <seconds> <folder>    (from the repository root, in an X server)
//
// Exit status 0 when every run ended with status 0 and a clean log, 1 otherwise, 2 on bad arguments.

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "engine/core/Config.h"
#include "engine/core/GameManager.h"
#include "game/Level.h"
#include "tests/support/LogReader.h"
#include "tests/support/WindowProcess.h"
#include "tools/proof/GameBot.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr const char* TITLE = "OstrelBot";

pid_t startGame(const std::string& binary, const std::string& config, const std::string& log) {
  pid_t pid = fork();
  if (pid == 0) {
    setenv("OSTREL_CONFIG", config.c_str(), 1);
    setenv("OSTREL_LOG", log.c_str(), 1);
    execl(binary.c_str(), binary.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  return pid;
}

// Problems in a finished run's log, printed; their number.
int checkLog(const std::string& path) {
  std::vector<std::string> log = ot_test::readLogMessages(path);
  int problems = 0;
  for (const std::string& line : log) {
    if (line.find("Error") == std::string::npos) continue;
    std::printf("%s: %s\n", path.c_str(), line.c_str());
    problems++;
  }
  if (log.empty() || log.back() != "** Game engine stopped **") {
    std::printf("%s: the engine didn't stop cleanly\n", path.c_str());
    problems++;
  }
  return problems;
}

// The shop's tile on the first floor.
std::pair<int, int> shopTile(Level& level) {
  level.setFloor(0);
  for (int y = 0; y < MAP_H; y++)
    for (int x = 0; x < MAP_W; x++)
      if (level.tileAt(x, y) == TILE_SHOP) return {x, y};
  return {0, 0};
}

// Opens the shop, tries every item, and leaves it; a press lost in a slow frame is pressed again.
void shop(ot_proof::GameBot& bot) {
  bot.press("e");
  usleep(300 * 1000);
  if (!bot.look().shop_open) return;
  for (const char* item : {"1", "2", "3", "4", "5"}) bot.press(item);
  for (int tries = 0; tries < 3 && bot.look().shop_open; tries++) {
    bot.press("e");
    usleep(300 * 1000);
  }
}

// Toward where creatures come from.
void wander(ot_proof::GameBot& bot, Level& level, int goal, bool strike) {
  const std::vector<SpawnPoint>& points = level.getSpawnPoints();
  if (!points.empty()) bot.walkTo(points[goal % points.size()].x, points[goal % points.size()].y, 5, strike);
}

}  // namespace

int main(int argc, char** argv) {
  long seconds = argc == 4 ? std::strtol(argv[2], nullptr, 10) : 0;
  if (seconds <= 0) {
    std::fprintf(stderr, "usage: ostrel-bot <game binary> <seconds> <folder>\n");
    return 2;
  }
  const std::string binary = argv[1], folder = argv[3];
  // The bot's own headless world holds the map it walks by.
  setenv("OSTREL_CONFIG", "/dev/null", 1);
  setenv("OSTREL_LOG", (folder + "/bot.log").c_str(), 1);
  ot::Config::getInstance().setHeadless(true);
  ot::Config::getInstance().setNetworking(false);
  if (ot::GameManager::getInstance().startUp() != 0) return 1;
  Level& level = *new Level;
  const auto [shop_x, shop_y] = shopTile(level);

  const auto end = Clock::now() + std::chrono::seconds(seconds);
  auto next_shot = Clock::now();
  int shots = 0, runs = 0, problems = 0;
  while (Clock::now() < end) {
    runs++;
    const std::string config = folder + "/game-config.txt",
                      log = folder + "/run-" + std::to_string(runs) + ".log";
    std::ofstream(config) << "networking:false,\nrandom_seed:" << runs << ",\nwindow_title:" << TITLE
                          << ",\n";
    pid_t pid = startGame(binary, config, log);
    unsigned long window = ot_test::focusWindow(TITLE);
    if (window == 0) {
      std::printf("run %d: no game window\n", runs);
      problems++;
    }
    ot_proof::GameBot bot(window, level);
    bool over = window == 0, died = false;
    const auto run_start = Clock::now();
    for (int goal = 0; !over && Clock::now() < end; goal++) {
      if (Clock::now() >= next_shot) {
        bot.saveScreenshot(folder + "/shot-" + std::to_string(++shots) + ".png");
        next_shot += std::chrono::seconds(30);
      }
      ot_proof::GameBot::Sight sight = bot.look();
      died = sight.game_over;
      over = sight.window_gone || died;
      if (over) break;
      // Mostly hunting, now and then to the shop or down (or up) the stairs; after two
      // minutes the bot stops striking, so that the creatures end the run and a new one starts.
      if (Clock::now() - run_start > std::chrono::minutes(2)) {
        if (!bot.approachNearestCreature()) wander(bot, level, goal, false);
      } else if (goal % 8 == 3 && sight.floor == 0 && bot.walkTo(shop_x, shop_y, 20)) {
        shop(bot);
      } else if (goal % 8 == 7 &&
                 bot.walkTo(level.getStairsX(sight.floor), level.getStairsY(sight.floor), 20)) {
        bot.press("e");
      } else if (!sight.creatures.empty()) {
        bot.walkTo(sight.creatures.front().first, sight.creatures.front().second, 3);
      } else {
        wander(bot, level, goal, true);
      }
    }
    if (over) {
      std::printf("run %d: %s\n", runs, died ? "the hero died" : "the window closed");
      if (died) bot.saveScreenshot(folder + "/run-" + std::to_string(runs) + "-end.png");
    } else {
      bot.press("q");
    }
    int status = ot_test::waitForExit(pid);
    if (status != 0) std::printf("run %d: exit status %d\n", runs, status);
    problems += (status != 0) + checkLog(log);
  }
  ot::GameManager::getInstance().shutDown();
  std::printf("%d runs, %d screenshots in %s, %d problems\n", runs, shots, folder.c_str(), problems);
  return problems == 0 ? 0 : 1;
}
