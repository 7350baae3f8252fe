// Feeds every file of the directories (or the files) named on the command
// line to a fuzz target's entry, in name order: the committed seeds and the
// inputs of past findings, replayed by the test command without the fuzzer.
// Exits 1 when there was nothing to replay; any fault ends it by the sanitizers.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "engine/core/GameManager.h"
#include "tests/fuzz/FuzzEngine.h"

namespace fs = std::filesystem;

int main(int argc, char** argv) {
  std::vector<fs::path> inputs;
  for (int i = 1; i < argc; i++) {
    fs::path given(argv[i]);
    if (fs::is_directory(given)) {
      for (const auto& entry : fs::directory_iterator(given))
        if (entry.is_regular_file()) inputs.push_back(entry.path());
    } else {
      inputs.push_back(given);
    }
  }
  std::sort(inputs.begin(), inputs.end());
  if (inputs.empty()) {
    fprintf(stderr, "replay: no inputs\n");
    return 1;
  }
  LLVMFuzzerInitialize(&argc, &argv);
  for (const fs::path& path : inputs) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    printf("replay: %s (%zu bytes)\n", path.filename().c_str(), bytes.size());
    fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
  ot::GameManager::getInstance().shutDown();
  printf("replay: %zu inputs, no fault\n", inputs.size());
  return 0;
}
