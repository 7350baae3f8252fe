// Whole processes meeting the audio libraries for the first time, as a game
// on a fresh machine does: nothing in the environment about audio, and
// standard error watched.

#include "engine/presentation/AudioOutput.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "engine/platform/Platform.h"
#include "tests/support/LogReader.h"
#include "tests/support/WavFile.h"

namespace {

using Lines = std::vector<std::string>;
using Environment = std::vector<std::pair<std::string, std::string>>;

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
  Lines log;
};

std::string contents(const std::string& path) {
  std::ifstream file(path);
  return std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
}

// Settings for a fast headless start; written before a fork, not in the child.
std::string configPath() {
  return ot_test::writeTempFile("audio-config.txt", "headless:true,\nnetworking:false,\nframe_time:1,\n");
}

// In the child: a clean audio environment, the test's settings and files.
void prepareChild(const Environment& environment, const std::string& config_path, const std::string& log_path,
                  const std::string& out_path, const std::string& err_path) {
  for (const char* name : {"ALSOFT_DRIVERS", "ALSOFT_LOGLEVEL", "ALSOFT_LOGFILE", "ALSOFT_CONF"})
    unsetenv(name);
  for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
  setenv("OSTREL_CONFIG", config_path.c_str(), 1);
  setenv("OSTREL_LOG", log_path.c_str(), 1);
  dup2(open(out_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), 1);
  dup2(open(err_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), 2);
}

Outcome runAudioProcess(const Environment& environment) {
  const std::string log_path = ot_test::writeTempFile("audio-process.log", "");
  const std::string out_path = ot_test::writeTempFile("audio-process.out", "");
  const std::string err_path = ot_test::writeTempFile("audio-process.err", "");
  const std::string wav = ot_test::writeWavFile("audio-process.wav", 8000);
  const std::string config_path = configPath();
  pid_t pid = fork();
  if (pid == 0) {
    prepareChild(environment, config_path, log_path, out_path, err_path);
    execl(OSTREL_AUDIO_PROCESS, OSTREL_AUDIO_PROCESS, wav.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  Outcome outcome;
  int status = 0;
  if (waitpid(pid, &status, 0) == pid && WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
  outcome.out = contents(out_path);
  outcome.err = contents(err_path);
  outcome.log = ot_test::readLogMessages(log_path);
  return outcome;
}

Lines audioLines(const Lines& log) {
  Lines found;
  for (const std::string& line : log) {
    if (line.rfind("AudioOutput::", 0) == 0) found.push_back(line);
  }
  return found;
}

TEST(AudioOutputProcess, WithoutASoundDeviceEverythingPlaysSilently) {
  if (ot::platform::soundHardwarePresent()) GTEST_SKIP() << "this machine has sound hardware";
  Outcome outcome = runAudioProcess({});
  EXPECT_EQ(0, outcome.status);
  EXPECT_EQ("silent\n", outcome.out);
  EXPECT_EQ("", outcome.err);
  EXPECT_EQ(Lines{"AudioOutput::open(): No sound device: sounds and music are silent."},
            audioLines(outcome.log));
}

TEST(AudioOutputProcess, ADeviceThatFailsToOpenLeavesTheSameSilence) {
  if (ot::platform::soundHardwarePresent()) GTEST_SKIP() << "this machine has sound hardware";
  // A user's own choice of driver stays, and here that driver finds no device.
  Outcome outcome = runAudioProcess({{"ALSOFT_DRIVERS", "alsa"}});
  EXPECT_EQ(0, outcome.status);
  EXPECT_EQ("silent\n", outcome.out);
  EXPECT_EQ("", outcome.err);
  EXPECT_EQ(Lines{"AudioOutput::open(): Warning! Cannot open the sound device: sounds and music are silent."},
            audioLines(outcome.log));
}

TEST(AudioOutputProcess, HeadlessGameWritesNothingToStandardError) {
  const std::string err_path = ot_test::writeTempFile("game-err.txt", "");
  const std::string config_path = configPath();
  // The log is a pipe, read as the game writes it: the first line means it has started.
  int fds[2];
  ASSERT_EQ(0, pipe(fds));
  pid_t pid = fork();
  if (pid == 0) {
    close(fds[0]);
    prepareChild({}, config_path, "/dev/fd/3", "/dev/null", err_path);
    dup2(fds[1], 3);
    execl(OSTREL_GAME_BINARY, OSTREL_GAME_BINARY, static_cast<char*>(nullptr));
    _exit(127);
  }
  close(fds[1]);
  FILE* p_log = fdopen(fds[0], "r");
  char line[512];
  bool signalled = false;
  while (fgets(line, sizeof(line), p_log)) {
    if (!signalled) signalled = kill(pid, SIGTERM) == 0;
  }
  fclose(p_log);
  int status = 0;
  ASSERT_EQ(pid, waitpid(pid, &status, 0));
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_EQ("", contents(err_path));
}

}  // namespace
