#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <regex>

#include "tests/support/LogReader.h"

using Lines = std::vector<std::string>;
static const std::string STARS(52, '*');

// Starts the game headless with log and standard error at these paths; log_fd becomes its fd 3.
static pid_t startGame(const std::string& log_path, const std::string& err_path, int log_fd = -1,
                       const std::string& dir = "") {
  std::string config_path = ot_test::writeTempFile("game-config.txt", "headless:true,\nnetworking:false,\n");
  pid_t pid = fork();
  if (pid == 0) {
    if (log_fd >= 0) dup2(log_fd, 3);
    if (!dir.empty() && chdir(dir.c_str()) != 0) _exit(126);
    setenv("OSTREL_CONFIG", config_path.c_str(), 1);
    setenv("OSTREL_LOG", log_path.c_str(), 1);
    dup2(open(err_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), 2);
    execl(OSTREL_GAME_BINARY, OSTREL_GAME_BINARY, static_cast<char*>(nullptr));
    _exit(127);
  }
  return pid;
}

static int exitStatus(pid_t pid) {
  int status = 0;
  return waitpid(pid, &status, 0) == pid && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class GameProcess : public ::testing::TestWithParam<int> {};

// Runs the game headless from the repository root and signals it once the log shows the line
// that stop_after begins with; its log messages and exit status.
static std::pair<Lines, int> runGameUntil(const std::string& stop_after, int signal) {
  // The log is a pipe, read as the game writes it: no timing, and no wait past the game's end.
  int fds[2];
  if (pipe(fds) != 0) return {{}, -1};
  pid_t pid = startGame("/dev/fd/3", "/dev/null", fds[1], std::getenv("OSTREL_SOURCE_DIR"));
  close(fds[1]);
  FILE* p_log = fdopen(fds[0], "r");
  std::string text;
  char line[512];
  bool signalled = false;
  while (fgets(line, sizeof(line), p_log)) {
    text += line;
    if (!signalled && text.find(stop_after) != std::string::npos) {
      kill(pid, signal);
      signalled = true;
    }
  }
  fclose(p_log);
  int status = exitStatus(pid);
  return {ot_test::readLogMessages(ot_test::writeTempFile("game-copy.log", text)), status};
}

TEST_P(GameProcess, HeadlessRunStopsOnSignalWithStatusZero) {
  auto [messages, status] = runGameUntil(STARS, GetParam());  // the banner comes first, flushed
  EXPECT_EQ(0, status);
  ASSERT_GE(messages.size(), 4u);
  EXPECT_EQ((Lines{STARS, "** Ostrel version 4.25 **", "** Game engine started **"}),
            Lines(messages.begin(), messages.begin() + 3));
  EXPECT_EQ("** Game engine stopped **", messages.back());
}

INSTANTIATE_TEST_SUITE_P(Signals, GameProcess, ::testing::Values(SIGINT, SIGTERM));

TEST(GameStart, UnwritableLogEndsWithStatusOne) {
  std::string err_path = ot_test::writeTempFile("game-stderr.txt", "");
  EXPECT_EQ(1, exitStatus(startGame("/nonexistent-dir/game.log", err_path)));
  EXPECT_EQ((Lines{"LogManager::startup(): Warning! Unable to open file '/nonexistent-dir/game.log'.",
                   "GameManager::startUp(): Error! Starting log manager.", "Error starting game manager!",
                   STARS, "** Game engine stopped **"}),
            ot_test::readLogMessages(err_path));
  std::ifstream err(err_path);
  std::string text((std::istreambuf_iterator<char>(err)), std::istreambuf_iterator<char>());
  EXPECT_TRUE(std::regex_search(text, std::regex(R"(\d\d:\d\d:\d\d    0 Error starting game manager!\n)")));
}
