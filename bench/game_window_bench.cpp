// One whole frame of the dungeon game in a real window, through the real game
// loop without the frame's sleep, so mostly its drawing: the map in view, the
// creatures, the HUD and the timer line. Beside it, in the same run, the
// batched floor: a full 80 by 24 screen drawn by hand as two vertex arrays,
// which is about what the game's view costs at the least. Needs a display:
// run it under Xvfb.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>

#include "bench/support/BatchedScreen.h"
#include "bench/support/GameRun.h"
#include "bench/support/RatioReporter.h"
#include "engine/core/Config.h"

namespace {

constexpr int FRAMES = 30;

void BM_GameFrameInWindow(benchmark::State& state) { ot_bench::GameRun::measure(state, FRAMES); }

void BM_BatchedScreen(benchmark::State& state) {
  ot_bench::BatchedScreen screen;
  for (auto _ : state) {
    screen.draw();
    ot::DisplayManager::getInstance().swapBuffers();
  }
}

BENCHMARK(BM_GameFrameInWindow)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_BatchedScreen)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  const std::string font = ot::findFontFile(OSTREL_SOURCE_DIR);
  ot::GameManager& game = ot::GameManager::getInstance();
  if (!ot_bench::GameRun::start(
          "networking:false,\nlogfile:/tmp/ostrel-game-window-bench.log,\nfont_file:" + font + ",\n")) {
    std::fprintf(stderr, "game_window_bench: the engine didn't start (a display is needed)\n");
    game.shutDown();
    return 1;
  }
  // Frames as fast as they draw: the figures measure drawing, not the monitor.
  ot::DisplayManager::getInstance().getWindow()->setVerticalSyncEnabled(false);

  ot_bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double frame_ms = reporter.seconds("BM_GameFrameInWindow/real_time") * 1e3 / FRAMES;
  double floor_ms = reporter.seconds("BM_BatchedScreen/real_time") * 1e3;
  double budget_ms = game.getFrameTime();
  if (frame_ms > 0 && floor_ms > 0)
    std::printf(
        "game frame in a window: %.2f ms = %.1f%% of the %.0f ms budget; batched 80x24 floor %.2f ms; "
        "game / floor = %.2f\n",
        frame_ms, 100 * frame_ms / budget_ms, budget_ms, floor_ms, frame_ms / floor_ms);
  game.shutDown();
  benchmark::Shutdown();
  return 0;
}
