// Defaults of the test environment, set before any test runs, so that the
// test binaries behave the same under ctest and when started by hand. A value
// already in the environment stays.

#include <cstdlib>

namespace {

const bool g_environment_set = [] {
  setenv("OSTREL_SOURCE_DIR", OSTREL_SOURCE_DIR, 0);
  setenv("OSTREL_CONFIG", OSTREL_SOURCE_DIR "/tests/support/headless-config.txt", 0);
  return true;
}();

}  // namespace
