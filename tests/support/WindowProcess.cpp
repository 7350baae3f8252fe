#include "tests/support/WindowProcess.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace ot_test {

int xdotool(const std::string& args) {
  return std::system(("timeout 20 xdotool " + args + " >/dev/null 2>&1").c_str());
}

unsigned long focusWindow(const std::string& title) {
  FILE* p_out = popen(("timeout 20 xdotool search --sync --name " + title).c_str(), "r");
  unsigned long id = 0;
  if (p_out) {
    if (fscanf(p_out, "%lu", &id) != 1) id = 0;
    pclose(p_out);
  }
  if (id != 0 && xdotool("windowfocus --sync " + std::to_string(id)) != 0) id = 0;
  return id;
}

int waitForExit(pid_t pid) {
  for (int i = 0; i < 200; i++) {
    int status = 0;
    if (waitpid(pid, &status, WNOHANG) == pid) return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    usleep(100 * 1000);
  }
  kill(pid, SIGKILL);
  waitpid(pid, nullptr, 0);
  return -1;
}

}  // namespace ot_test
