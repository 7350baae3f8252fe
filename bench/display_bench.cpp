// One full screen of 80 by 24 characters a frame, drawn through drawCh as the
// engine draws (each cell recorded into the display's own batch, which the
// swap draws), against the same screen batched by hand into two vertex
// arrays: the background quads, and the glyph quads textured from the font's
// page. The hand-made batch is the floor of what SFML can do here. Both end
// each frame with swapBuffers. Needs a display: run it under Xvfb.
//
//   xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" ./display_bench

#include <benchmark/benchmark.h>

#include <SFML/Graphics.hpp>
#include <cstdio>
#include <string>

#include "bench/support/BatchedScreen.h"
#include "bench/support/RatioReporter.h"
#include "engine/core/Config.h"
#include "engine/core/GameManager.h"
#include "engine/presentation/DisplayManager.h"

namespace {

using ot::DisplayManager;

using ot_bench::BatchedScreen;
constexpr int COLS = BatchedScreen::COLS;
constexpr int ROWS = BatchedScreen::ROWS;

// Only the swap: the clear and the display that both screens pay as well.
void BM_EmptyFrame(benchmark::State& state) {
  DisplayManager& display = DisplayManager::getInstance();
  for (auto _ : state) display.swapBuffers();
}

void BM_DrawChScreen(benchmark::State& state) {
  DisplayManager& display = DisplayManager::getInstance();
  for (auto _ : state) {
    for (int y = 0; y < ROWS; y++) {
      for (int x = 0; x < COLS; x++) {
        display.drawCh(ot::Vector(static_cast<float>(x), static_cast<float>(y)),
                       BatchedScreen::cellChar(x, y), BatchedScreen::cellColor(x, y));
      }
    }
    display.swapBuffers();
  }
  state.SetItemsProcessed(state.iterations() * COLS * ROWS);
}

void BM_BatchedScreen(benchmark::State& state) {
  ot_bench::BatchedScreen screen;
  for (auto _ : state) {
    screen.draw();
    DisplayManager::getInstance().swapBuffers();
  }
  state.SetItemsProcessed(state.iterations() * COLS * ROWS);
}

BENCHMARK(BM_EmptyFrame)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_DrawChScreen)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_BatchedScreen)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  ot::Config& config = ot::Config::getInstance();
  config.setHeadless(false);
  config.setNetworking(false);
  config.setFontFile(ot::findFontFile());
  config.setLogfile("/tmp/ostrel-display-bench.log");
  ot::GameManager& game = ot::GameManager::getInstance();
  if (game.startUp() != 0) {
    std::fprintf(stderr, "display_bench: the engine didn't start (a display is needed)\n");
    game.shutDown();
    return 1;
  }
  // Frames as fast as they draw: the figures measure drawing, not the monitor.
  DisplayManager::getInstance().getWindow()->setVerticalSyncEnabled(false);

  ot_bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double draw_ch = reporter.seconds("BM_DrawChScreen/real_time") * 1e3;
  double batched = reporter.seconds("BM_BatchedScreen/real_time") * 1e3;
  double empty = reporter.seconds("BM_EmptyFrame/real_time") * 1e3;
  if (draw_ch > 0 && batched > empty) {
    std::printf("80x24 screen: drawCh %.3f ms/frame, batched %.3f ms/frame, empty frame %.3f ms\n", draw_ch,
                batched, empty);
    std::printf(
        "drawCh / batched = %.2f per frame; %.2f for the drawing alone (empty frame taken off both)\n",
        draw_ch / batched, (draw_ch - empty) / (batched - empty));
  }
  game.shutDown();
  benchmark::Shutdown();
  return 0;
}
