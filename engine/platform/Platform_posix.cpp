#include "engine/platform/Platform.h"

#include <dirent.h>
#include <unistd.h>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace ot {
namespace platform {

namespace {

volatile std::sig_atomic_t g_stop_signalled = 0;

extern "C" void onStopSignal(int) { g_stop_signalled = 1; }

}  // namespace

std::int64_t monotonicMicroseconds() {
  struct timespec now {};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<std::int64_t>(now.tv_sec) * 1000000 + now.tv_nsec / 1000;
}

void sleepMilliseconds(long milliseconds) {
  if (milliseconds <= 0) return;
  struct timespec wait {};
  wait.tv_sec = milliseconds / 1000;
  wait.tv_nsec = (milliseconds % 1000) * 1000000L;
  // A signal cuts the wait short; the loop's own arithmetic absorbs that.
  nanosleep(&wait, nullptr);
}

unsigned int timeBeginPeriod(unsigned int period) { return period >= 1 ? 0 : TIMERR_NOCANDO; }

unsigned int timeEndPeriod(unsigned int period) { return period >= 1 ? 0 : TIMERR_NOCANDO; }

bool getWorkingDirectory(char* buffer, std::size_t size) { return getcwd(buffer, size) != nullptr; }

bool displayAvailable() {
  const char* p_display = getenv("DISPLAY");
  return p_display && *p_display;
}

void installStopSignals() {
  g_stop_signalled = 0;
  std::signal(SIGINT, onStopSignal);
  std::signal(SIGTERM, onStopSignal);
}

void removeStopSignals() {
  std::signal(SIGINT, SIG_DFL);
  std::signal(SIGTERM, SIG_DFL);
}

bool stopSignalled() { return g_stop_signalled != 0; }

bool setEnvironmentDefault(const char* name, const char* value) { return setenv(name, value, 0) == 0; }

bool soundHardwarePresent() {
#if defined(__linux__)
  if (access("/dev/dsp", W_OK) == 0) return true;
  DIR* p_dir = opendir("/dev/snd");
  if (!p_dir) return false;
  // A playback stream's node is pcmC<card>D<device>p; control and capture nodes don't play.
  bool found = false;
  while (const dirent* p_entry = readdir(p_dir)) {
    std::size_t length = std::strlen(p_entry->d_name);
    if (std::strncmp(p_entry->d_name, "pcmC", 4) == 0 && p_entry->d_name[length - 1] == 'p') found = true;
  }
  closedir(p_dir);
  return found;
#else
  // Elsewhere the audio library finds the system's own output.
  return true;
#endif
}

std::string captureStandardError(const std::function<void()>& action) {
  std::fflush(stderr);
  std::FILE* p_file = std::tmpfile();
  int saved = p_file ? dup(STDERR_FILENO) : -1;
  if (saved < 0 || dup2(fileno(p_file), STDERR_FILENO) < 0) {
    if (saved >= 0) close(saved);
    if (p_file) std::fclose(p_file);
    action();
    return "";
  }
  action();
  std::fflush(stderr);
  dup2(saved, STDERR_FILENO);
  close(saved);
  std::string text;
  std::rewind(p_file);
  char buffer[512];
  std::size_t read = 0;
  while ((read = std::fread(buffer, 1, sizeof(buffer), p_file)) > 0) text.append(buffer, read);
  std::fclose(p_file);
  return text;
}

}  // namespace platform
}  // namespace ot
