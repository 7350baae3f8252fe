#pragma once

#include <sys/types.h>

#include <string>

namespace ot_test {

// Runs xdotool with these arguments, bounded to 20 s; its exit status.
int xdotool(const std::string& args);

// The id of the window with this title, waiting up to 20 s for it to appear,
// and given the keyboard; 0 if it doesn't appear.
unsigned long focusWindow(const std::string& title);

// Waits up to 20 s for the process to end; its exit status, or -1 (and a kill) if it doesn't.
int waitForExit(pid_t pid);

}  // namespace ot_test
