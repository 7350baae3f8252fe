// One whole frame of the dungeon game, headless: floor 1 as a run starts it,
// with the hero and its 23 enemies, the spawner, the HUD and the timer,
// through the real game loop (step events, input, world update, drawing) with
// the frame's sleep taken out. The figure is CPU time per frame against the
// 33 ms frame budget. Each measured stretch starts from a fresh world, so
// that the hero is alive and the enemies are hunting it.

#include <benchmark/benchmark.h>

#include <unistd.h>
#include <cstdio>
#include <cstdlib>

#include "bench/support/RatioReporter.h"
#include "engine/core/EventLabels.h"
#include "engine/core/GameManager.h"
#include "engine/world/WorldManager.h"
#include "game/game.h"

namespace {

constexpr int FRAMES = 60;  // per measured stretch: two seconds of play

// Ends the loop after a number of frames.
class StopAfter : public ot::Object {
 public:
  explicit StopAfter(int frames) : m_left(frames) {
    setType("StopAfter");
    setSolidness(ot::SPECTRAL);
    setVisible(false);
    registerInterest(ot::STEP_EVENT);
  }
  int eventHandler(const ot::Event*) override {
    if (--m_left <= 0) ot::GameManager::getInstance().setGameOver(true);
    return 1;
  }

 private:
  int m_left;
};

void freshRun() {
  ot::WorldManager& world = ot::WorldManager::getInstance();
  world.markForDelete(world.getAllObjects(true));
  world.update();
  g_floor_visited[0] = true;
  g_floor_visited[1] = false;
  srand(1);
  populateWorld();
}

void BM_GameFrame(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    freshRun();
    new StopAfter(FRAMES);
    state.ResumeTiming();
    ot::GameManager::getInstance().run();
  }
  state.SetItemsProcessed(state.iterations() * FRAMES);
}

BENCHMARK(BM_GameFrame)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  // Settings of its own: the repository's ot-config.txt opens a window.
  const char* config_path = "/tmp/ostrel-game-bench-config.txt";
  if (FILE* p_config = std::fopen(config_path, "w")) {
    std::fputs("headless:true,\nnetworking:false,\nlogfile:/tmp/ostrel-game-bench.log,\n", p_config);
    std::fclose(p_config);
  }
  setenv("OSTREL_CONFIG", config_path, 1);
  ot::GameManager& game = ot::GameManager::getInstance();
  if (game.startUp() != 0) {
    std::fprintf(stderr, "game_bench: the engine didn't start\n");
    game.shutDown();
    return 1;
  }
  ot::GameManager::setSleepFunction([](long) {});
  // The game reads its sprites from sprites/ under the working directory.
  if (chdir(OSTREL_SOURCE_DIR) != 0) std::fprintf(stderr, "game_bench: no %s\n", OSTREL_SOURCE_DIR);
  loadGameSprites();

  ot_bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double frame_ms = reporter.cpuSeconds("BM_GameFrame") * 1e3 / FRAMES;
  if (frame_ms > 0) {
    double budget_ms = game.getFrameTime();
    std::printf(
        "game frame, headless: %.4f ms CPU per frame = %.2f%% of the %.0f ms frame budget (aim: under 2%%)\n",
        frame_ms, 100 * frame_ms / budget_ms, budget_ms);
  }
  game.shutDown();
  benchmark::Shutdown();
  return 0;
}
