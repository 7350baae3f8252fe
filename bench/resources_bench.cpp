// Loading sprite files: a thousand files of each format, the same four
// frames of 5 by 3 in both, read from disk as the game does at start-up.
// Prints the time per file and the robust format's time against the simple
// one's, both measured in this run.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "bench/support/RatioReporter.h"
#include "engine/presentation/ResourceManager.h"

namespace {

constexpr int FILES = 1000;

const char* const ROWS[] = {"/---\\", "| $ |", "\\---/", "./-\\.", ".|$|.", ".\\-/.",
                            "..|..",  "..|..", "..|..",  "./-\\.", ".|$|.", ".\\-/."};

std::string simpleText() {
  std::string text = "4\n5\n3\n3\nyellow\n";
  for (const char* row : ROWS) text += std::string(row) + "\n";
  return text;
}

std::string robustText() {
  std::string text =
      "<HEADER>\nframes 4\nwidth 5\nheight 3\ncolor yellow\ntransparency .\nslowdown 3\n</HEADER>\n<BODY>\n";
  for (int i = 0; i < 12; i++) text += std::string(ROWS[i]) + (i % 3 == 2 ? "\nend\n" : "\n");
  return text + "</BODY>\n<FOOTER>\nversion 1\n</FOOTER>\n";
}

// FILES copies of the text, each in a file of its own.
std::vector<std::string> writeFiles(const std::string& format, const std::string& text) {
  std::vector<std::string> paths;
  for (int i = 0; i < FILES; i++) {
    paths.push_back("/tmp/ostrel-bench-" + format + "-" + std::to_string(i) + ".txt");
    std::ofstream(paths.back(), std::ios::binary) << text;
  }
  return paths;
}

void loadAll(benchmark::State& state, const std::vector<std::string>& paths) {
  ot::ResourceManager& rm = ot::ResourceManager::getInstance();
  std::vector<std::string> labels;
  for (int i = 0; i < FILES; i++) labels.push_back("sprite" + std::to_string(i));
  for (auto _ : state) {
    for (int i = 0; i < FILES; i++) {
      if (rm.loadSprite(paths[i], labels[i]) != 0) state.SkipWithError("a sprite file didn't load");
    }
    state.PauseTiming();
    rm.shutDown();
    rm.startUp();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * FILES);
}

std::vector<std::string> simple_paths;
std::vector<std::string> robust_paths;

void BM_LoadSimpleSprites(benchmark::State& state) { loadAll(state, simple_paths); }
void BM_LoadRobustSprites(benchmark::State& state) { loadAll(state, robust_paths); }
BENCHMARK(BM_LoadSimpleSprites)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadRobustSprites)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  simple_paths = writeFiles("simple", simpleText());
  robust_paths = writeFiles("robust", robustText());
  ot::ResourceManager::getInstance().startUp();

  benchmark::Initialize(&argc, argv);
  ot_bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double simple = reporter.seconds("BM_LoadSimpleSprites");
  double robust = reporter.seconds("BM_LoadRobustSprites");
  if (simple > 0 && robust > 0) {
    std::printf("per file: simple %.2f us, robust %.2f us\n", simple * 1e6 / FILES, robust * 1e6 / FILES);
    std::printf("robust/simple: %.2f\n", robust / simple);
  }

  ot::ResourceManager::getInstance().shutDown();
  for (const std::string& path : simple_paths) std::remove(path.c_str());
  for (const std::string& path : robust_paths) std::remove(path.c_str());
  return 0;
}
