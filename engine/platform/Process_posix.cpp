#include "engine/platform/Process.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

extern char** environ;

namespace ot {
namespace platform {

int startProcess(const std::string& path, const std::vector<std::string>& args) {
  std::vector<char*> argv;
  argv.push_back(const_cast<char*>(path.c_str()));
  for (const std::string& arg : args) argv.push_back(const_cast<char*>(arg.c_str()));
  argv.push_back(nullptr);
  pid_t pid = 0;
  if (posix_spawn(&pid, path.c_str(), nullptr, nullptr, argv.data(), environ) != 0) return -1;
  return static_cast<int>(pid);
}

int waitProcess(int id) {
  int status = 0;
  pid_t result;
  do {
    result = waitpid(static_cast<pid_t>(id), &status, 0);
  } while (result < 0 && errno == EINTR);
  if (result != static_cast<pid_t>(id) || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

}  // namespace platform
}  // namespace ot
