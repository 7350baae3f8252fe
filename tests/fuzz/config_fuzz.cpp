// The settings text: read from a file as the engine does at start-up, parsed
// directly, and looked up key by key with match on its own.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "engine/core/Config.h"
#include "engine/core/Utility.h"
#include "tests/fuzz/FuzzEngine.h"

namespace {

std::string g_path;

// The settings back to the engine's own after an input changed them.
void restoreSettings() {
  ot::Config& config = ot::Config::getInstance();
  config.reset();
  config.setHeadless(true);
  config.setNetworking(false);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  if (!ot_fuzz::startEngine(false)) abort();
  g_path = ot_fuzz::tempPath("config.txt");
  // From here on the settings file that loadConfig reads is the input.
  setenv("OSTREL_CONFIG", g_path.c_str(), 1);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  ot::Config& config = ot::Config::getInstance();

  ot_fuzz::writeFile(g_path, data, size);
  config.loadConfig("");
  config.print();
  restoreSettings();

  config.loadConfig(text);
  restoreSettings();

  // The first key of the text, looked up in a fresh parse and in the last one.
  const std::string key = text.substr(0, text.find(':'));
  ot::match(text, key);
  ot::match("", key);
  ot::match("", "frame_time");
  return 0;
}
