// One whole frame of the dungeon game, headless, through the real game loop
// (step events, input, world update, drawing) without the frame's sleep: the
// CPU time per frame against the 33 ms frame budget.

#include <benchmark/benchmark.h>

#include <cstdio>

#include "bench/support/GameRun.h"
#include "bench/support/RatioReporter.h"

namespace {

constexpr int FRAMES = 60;  // per measured stretch: two seconds of play

void BM_GameFrame(benchmark::State& state) { ot_bench::GameRun::measure(state, FRAMES); }

BENCHMARK(BM_GameFrame)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  ot::GameManager& game = ot::GameManager::getInstance();
  if (!ot_bench::GameRun::start("headless:true,\nnetworking:false,\nlogfile:/tmp/ostrel-game-bench.log,\n")) {
    std::fprintf(stderr, "game_bench: the engine didn't start\n");
    game.shutDown();
    return 1;
  }
  ot_bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double frame_ms = reporter.cpuSeconds("BM_GameFrame") * 1e3 / FRAMES;
  double budget_ms = game.getFrameTime();
  if (frame_ms > 0)
    std::printf(
        "game frame, headless: %.4f ms CPU per frame = %.2f%% of the %.0f ms frame budget (aim: under 2%%)\n",
        frame_ms, 100 * frame_ms / budget_ms, budget_ms);
  game.shutDown();
  benchmark::Shutdown();
  return 0;
}
