#include "engine/platform/Platform.h"

#include <unistd.h>
#include <csignal>
#include <cstdlib>
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

unsigned int timeBeginPeriod(unsigned int) { return 0; }

unsigned int timeEndPeriod(unsigned int) { return 0; }

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

}  // namespace platform
}  // namespace ot
