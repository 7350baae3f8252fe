#pragma once

// The few operating-system services the engine needs, behind one interface so
// that nothing above this folder includes a system header for time, sleep,
// directories or signals. This file is the POSIX side; the engine was designed
// around the Windows calls of the same names, which explains their shape.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace ot {
namespace platform {

// Microseconds on a counter that only moves forward: it never wraps and never
// steps back when the wall clock is set, so differences of two readings are
// true durations. Its origin is unspecified.
std::int64_t monotonicMicroseconds();

// Suspends the calling thread for about this many milliseconds; 0 returns at once.
void sleepMilliseconds(long milliseconds);

// Returned by timeBeginPeriod and timeEndPeriod when a resolution can't be set.
constexpr unsigned int TIMERR_NOCANDO = 97;

// Asks for a timer resolution of this many milliseconds: 0 for any period of
// one or more, since POSIX sleeps already resolve finer than that, and
// TIMERR_NOCANDO for a period of 0, which no timer offers.
unsigned int timeBeginPeriod(unsigned int period);
unsigned int timeEndPeriod(unsigned int period);

// Copies the working directory into buffer; false when it doesn't fit or fails.
bool getWorkingDirectory(char* buffer, std::size_t size);

// Whether a graphical display can be reached; opening a window without one
// would end the process inside the windowing library.
bool displayAvailable();

// Makes SIGINT and SIGTERM only note that a stop was asked for, so the game
// loop can end cleanly instead of the process dying mid-frame.
void installStopSignals();
// Puts the default handlers back.
void removeStopSignals();
// True once SIGINT or SIGTERM has arrived since installStopSignals.
bool stopSignalled();

// Sets an environment variable unless it is set already, so that a user's own
// choice wins; false when it can't be set.
bool setEnvironmentDefault(const char* name, const char* value);

// Whether the machine has sound hardware that an audio library could open
// directly. A sound server may still play where there is none.
bool soundHardwarePresent();

// Runs action with the process's standard error, as a file descriptor, sent to
// a temporary file, so that what libraries print there is caught too; returns
// what was written. Runs action uncaught when the redirection can't be made.
std::string captureStandardError(const std::function<void()>& action);

}  // namespace platform
}  // namespace ot
