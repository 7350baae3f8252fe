#pragma once

// Starting another program and waiting for its end, for tools that run the
// engine in two processes (the network benchmark, for one).

#include <string>
#include <vector>

namespace ot {
namespace platform {

// Starts path with these arguments (the program's name comes first by
// itself); the process's id, or -1.
int startProcess(const std::string& path, const std::vector<std::string>& args);
// Waits for a started process to end; its exit status, or -1 when it was
// killed or isn't ours.
int waitProcess(int id);

}  // namespace platform
}  // namespace ot
