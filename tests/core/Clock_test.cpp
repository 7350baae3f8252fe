#include "engine/core/Clock.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/support/FakeClock.h"
#include "tests/support/LogReader.h"

using ot::Clock;
using ot_test::FakeClock;

TEST(Clock, SplitMeasuresTrueDurationsAcrossJumps) {
  FakeClock fake;
  for (const ot_test::ClockJump& jump : ot_test::CLOCK_JUMPS) {
    FakeClock::setTime(jump.at - 1500);
    Clock clock;
    FakeClock::advance(3);
    EXPECT_EQ(3000, clock.split()) << jump.name;
    EXPECT_EQ(3000, clock.delta()) << jump.name;
    EXPECT_EQ(0, clock.split()) << jump.name;
    FakeClock::advance(2);
    EXPECT_EQ(2000, clock.delta()) << jump.name;
  }
}

namespace {

// The next line of fd into line, waiting at most timeout_ms for each piece;
// false at the end of the stream or when the wait runs out (timed_out set).
bool readLine(int fd, std::string& pending, std::string& line, int timeout_ms, bool& timed_out) {
  timed_out = false;
  for (;;) {
    size_t end = pending.find('\n');
    if (end != std::string::npos) {
      line = pending.substr(0, end);
      pending.erase(0, end + 1);
      return true;
    }
    pollfd wait{fd, POLLIN, 0};
    if (poll(&wait, 1, timeout_ms) <= 0) {
      timed_out = true;
      return false;
    }
    char buffer[256];
    ssize_t got = read(fd, buffer, sizeof(buffer));
    if (got <= 0) return false;
    pending.append(buffer, static_cast<size_t>(got));
  }
}

// The library the faketime command preloads, or "" when there is no such command.
std::string faketimeLibrary() {
  FILE* p_out = popen("faketime -f +0 printenv LD_PRELOAD 2>/dev/null", "r");
  if (!p_out) return "";
  char buffer[512] = "";
  if (!fgets(buffer, sizeof(buffer), p_out)) buffer[0] = '\0';
  pclose(p_out);
  std::string path = buffer;
  if (!path.empty() && path.back() == '\n') path.pop_back();
  return path;
}

}  // namespace

// Frames that work longer than the frame time, so the wall clock passes
// 17:32:26.230 UTC, where a date-folded reading jumped back, inside a frame's
// work. The loop must go on stepping past it and still end when asked.
TEST(ClockProcess, SlowFramesKeepSteppingPastTheWallClockJump) {
  // Asked of the faketime command itself, so that the process under test is
  // the game and not a wrapper around it: signals reach it, and a kill leaves nothing behind.
  const std::string preload = faketimeLibrary();
  if (preload.empty()) GTEST_SKIP() << "faketime is not installed; tools/install-deps.sh installs it";
  const std::string config = ot_test::writeTempFile(
      "slow-config.txt", "headless:true,\nnetworking:false,\nrandom_seed:1,\nframe_time:33,\n");
  const std::string log_path = ot_test::writeTempFile("slow-frames.log", "");
  int fds[2];
  ASSERT_EQ(0, pipe(fds));
  pid_t pid = fork();
  if (pid == 0) {
    dup2(fds[1], 1);
    close(fds[0]);
    close(fds[1]);
    setenv("TZ", "UTC", 1);
    setenv("OSTREL_CONFIG", config.c_str(), 1);
    setenv("OSTREL_LOG", log_path.c_str(), 1);
    setenv("LD_PRELOAD", preload.c_str(), 1);
    // Time starts there and runs on at the normal rate.
    setenv("FAKETIME", "@2026-11-24 17:32:24", 1);
    // The time library is preloaded before the sanitizer's runtime.
    const char* p_asan = getenv("ASAN_OPTIONS");
    setenv("ASAN_OPTIONS", (std::string(p_asan ? p_asan : "") + ":verify_asan_link_order=0").c_str(), 1);
    execl(OSTREL_SLOW_FRAMES_BINARY, OSTREL_SLOW_FRAMES_BINARY, static_cast<char*>(nullptr));
    _exit(127);
  }
  close(fds[1]);

  // Each wait is bounded: a frozen loop shows as no step for ten seconds.
  const int timeout_ms = 10000;
  std::string pending, line, first_stamp, last_stamp = "(none)";
  int expected_step = 0;
  bool timed_out = false, asked = false;
  while (readLine(fds[0], pending, line, timeout_ms, timed_out)) {
    const std::string stamp = line.substr(0, line.find(' '));
    if (first_stamp.empty()) first_stamp = stamp;
    EXPECT_EQ(std::to_string(expected_step++), line.substr(line.find(' ') + 1)) << "at " << stamp;
    last_stamp = stamp;
    // Well past the jump: ask the game to end.
    if (!asked && stamp >= "17:32:28") asked = kill(pid, SIGTERM) == 0;
  }
  close(fds[0]);
  if (timed_out) kill(pid, SIGKILL);
  int status = 0;
  ASSERT_EQ(pid, waitpid(pid, &status, 0));
  ASSERT_FALSE(timed_out) << "no step for " << timeout_ms / 1000 << " s after step " << expected_step - 1
                          << " at " << last_stamp << ": the loop froze";
  EXPECT_EQ("17:32:2", first_stamp.substr(0, 7)) << "the clock wasn't faked";
  EXPECT_TRUE(asked) << "the game ended by itself at step " << expected_step - 1 << ", " << last_stamp;
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(0, WEXITSTATUS(status));
  const std::vector<std::string> log = ot_test::readLogMessages(log_path);
  EXPECT_TRUE(!log.empty() && log.back() == "** Game engine stopped **");
}
