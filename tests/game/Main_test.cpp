// The game executable as a whole process: start-up log, frames, clean stop.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>

#include "tests/support/LogReader.h"

using ot_test::logHas;

namespace {

// Starts the game with a headless config and the given log file; its pid.
pid_t startGame(const std::string& log_path, const std::string& config) {
  std::string config_path = ot_test::writeTempFile("game-config.txt", config);
  unlink(log_path.c_str());  // a banner left by an earlier run must not count
  pid_t pid = fork();
  if (pid == 0) {
    setenv("OSTREL_CONFIG", config_path.c_str(), 1);
    setenv("OSTREL_LOG", log_path.c_str(), 1);
    execl(OSTREL_GAME_BINARY, OSTREL_GAME_BINARY, static_cast<char*>(nullptr));
    _exit(127);
  }
  return pid;
}

// Ends the game process, whatever became of the test.
struct Reaper {
  pid_t pid;
  ~Reaper() {
    if (pid > 0 && waitpid(pid, nullptr, WNOHANG) == 0) {
      kill(pid, SIGKILL);
      waitpid(pid, nullptr, 0);
    }
  }
};

class GameProcess : public ::testing::TestWithParam<int> {};

}  // namespace

TEST_P(GameProcess, HeadlessRunStopsOnSignalWithStatusZero) {
  std::string log_path = "/tmp/ostrel-test-" + std::to_string(getpid()) + "-game.log";
  pid_t pid = startGame(log_path, "headless:true,\nnetworking:false,\n");
  ASSERT_GT(pid, 0);
  Reaper reaper{pid};
  // Only unconditional lines reach the game's log; the banner is the first.
  bool banner = false;
  for (int i = 0; i < 2000 && !banner; i++) {
    banner = logHas(ot_test::readLogMessages(log_path), "** Game engine started **");
    if (!banner) usleep(5000);
  }
  ASSERT_TRUE(banner);
  kill(pid, GetParam());
  int status = 0;
  ASSERT_EQ(pid, waitpid(pid, &status, 0));
  reaper.pid = 0;
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(0, WEXITSTATUS(status));
  auto log = ot_test::readLogMessages(log_path);
  EXPECT_EQ("****************************************************", log.at(0));
  EXPECT_EQ("** Ostrel version 4.25 **", log.at(1));
  EXPECT_EQ("** Game engine started **", log.at(2));
  EXPECT_EQ("** Game engine stopped **", log.back());
}

INSTANTIATE_TEST_SUITE_P(Signals, GameProcess, ::testing::Values(SIGINT, SIGTERM));

TEST(GameStart, UnwritableLogEndsWithStatusOne) {
  pid_t pid = startGame("/nonexistent-dir/game.log", "headless:true,\n");
  int status = 0;
  ASSERT_EQ(pid, waitpid(pid, &status, 0));
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(1, WEXITSTATUS(status));
}
