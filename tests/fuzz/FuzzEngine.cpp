#include "tests/fuzz/FuzzEngine.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <vector>

#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"

namespace ot_fuzz {

namespace {

// Never freed: still wanted by the handler at exit, after static destruction.
std::vector<std::string>* g_temp_files = nullptr;

void removeTempFiles() {
  for (const std::string& path : *g_temp_files) std::remove(path.c_str());
}

}  // namespace

bool startEngine(bool networking) {
  // Millions of inputs would fill a disk with log lines; the lines are still
  // formatted and written, only to nowhere, unless a log is asked for to see
  // what became of one input.
  setenv("OSTREL_LOG", "/dev/null", 0);
  const std::string settings =
      std::string("headless:true,\nrandom_seed:1,\nnetworking:") + (networking ? "true" : "false") + ",\n";
  const std::string path = tempPath("settings.txt");
  writeFile(path, settings.data(), settings.size());
  setenv("OSTREL_CONFIG", path.c_str(), 1);
  if (ot::GameManager::getInstance().startUp() != 0) {
    fprintf(stderr, "fuzz: the engine did not start\n");
    return false;
  }
  ot::LogManager::getInstance().setLogLevel(0);
  return true;
}

std::string tempPath(const std::string& name) {
  if (!g_temp_files) {
    g_temp_files = new std::vector<std::string>;
    atexit(removeTempFiles);
  }
  std::string path = "/tmp/ostrel-fuzz-" + std::to_string(getpid()) + "-" + name;
  g_temp_files->push_back(path);
  return path;
}

void writeFile(const std::string& path, const void* p_data, std::size_t size) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(static_cast<const char*>(p_data), static_cast<std::streamsize>(size));
}

void fail(const char* what) {
  fprintf(stderr, "==fuzz== ERROR: %s\n", what);
  abort();
}

}  // namespace ot_fuzz
