#include "engine/platform/Platform.h"

#include <sys/time.h>
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

SystemTime getSystemTime() {
  struct timeval now {};
  gettimeofday(&now, nullptr);
  struct tm utc {};
  time_t seconds = now.tv_sec;
  gmtime_r(&seconds, &utc);
  SystemTime result;
  result.wDay = static_cast<unsigned short>(utc.tm_mday);
  result.wHour = static_cast<unsigned short>(utc.tm_hour);
  result.wMinute = static_cast<unsigned short>(utc.tm_min);
  result.wSecond = static_cast<unsigned short>(utc.tm_sec);
  result.wMilliseconds = static_cast<unsigned short>(now.tv_usec / 1000);
  return result;
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
