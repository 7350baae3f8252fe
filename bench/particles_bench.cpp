// Particles through a whole life: a burst of 1000 made, stepped, moved and
// drawn (headless) for the 60 frames its age gives it, until the world deletes
// it. The reference is the same 1000 as plain spectral objects moving alike,
// which get no step events and carry no shape, measured in the same run.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "bench/support/RatioReporter.h"
#include "engine/core/Config.h"
#include "engine/core/EventStep.h"
#include "engine/core/GameManager.h"
#include "engine/core/ObjectList.h"
#include "engine/effects/Particles.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"

namespace {

constexpr int COUNT = 1000;
constexpr int FRAMES = 60;
const ot::Vector CENTRE(40.0f, 12.0f);

// The game loop's work for one frame, without the display swap, input and sleep.
void frame() {
  static int step = 0;
  ot::EventStep s(step++);
  ot::GameManager::getInstance().onEvent(&s);
  ot::WorldManager::getInstance().update();
  ot::WorldManager::getInstance().draw();
}

void burst() {
  // Age FRAMES: each particle is marked on the last frame and deleted in it.
  ot::addParticles(COUNT, 0, CENTRE, 1.0f, ot::Vector(), 0.0f, 2.0f, 0.5f, 0.08f, 0.04f, FRAMES, 0, 255, 75,
                   255, 69, 0, 50, ot::PARTICLE);
}

void BM_BurstMade(benchmark::State& state) {
  for (auto _ : state) {
    burst();
    state.PauseTiming();
    ot::WorldManager& world = ot::WorldManager::getInstance();
    world.markForDelete(world.getAllObjects(true));
    world.update();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * COUNT);
}
BENCHMARK(BM_BurstMade)->Unit(benchmark::kMicrosecond);

void BM_BurstLife(benchmark::State& state) {
  for (auto _ : state) {
    burst();
    for (int i = 0; i < FRAMES; i++) frame();
  }
  if (ot::WorldManager::getInstance().getAllObjects(true).getCount() != 0)
    state.SkipWithError("particles outlived their age");
  state.SetItemsProcessed(state.iterations() * COUNT * FRAMES);
}
BENCHMARK(BM_BurstLife)->Unit(benchmark::kMillisecond);

void BM_PlainObjectsLife(benchmark::State& state) {
  srand(1);
  for (auto _ : state) {
    for (int i = 0; i < COUNT; i++) {
      auto* p_o = new ot::Object();
      p_o->setSolidness(ot::SPECTRAL);
      p_o->setPosition(CENTRE);
      p_o->setVelocity(ot::Vector((rand() % 200 - 100) / 1000.0f, (rand() % 200 - 100) / 1000.0f));
    }
    for (int i = 0; i < FRAMES; i++) {
      if (i == FRAMES - 1) {
        ot::WorldManager& world = ot::WorldManager::getInstance();
        world.markForDelete(world.getAllObjects(true));
      }
      frame();
    }
  }
  state.SetItemsProcessed(state.iterations() * COUNT * FRAMES);
}
BENCHMARK(BM_PlainObjectsLife)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  setenv("OSTREL_CONFIG", "/dev/null", 1);
  setenv("OSTREL_LOG", "/tmp/ostrel-particles-bench.log", 0);
  ot::Config::getInstance().setHeadless(true);
  ot::Config::getInstance().setNetworking(false);
  if (ot::GameManager::getInstance().startUp() != 0) {
    std::fprintf(stderr, "the engine didn't start\n");
    return 1;
  }
  srand(1);

  benchmark::Initialize(&argc, argv);
  ot_bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double made = reporter.seconds("BM_BurstMade");
  double life = reporter.seconds("BM_BurstLife");
  double plain = reporter.seconds("BM_PlainObjectsLife");
  if (made > 0 && life > 0 && plain > 0) {
    std::printf("burst of %d made: %.3f us a particle\n", COUNT, made * 1e6 / COUNT);
    std::printf("burst life: %.3f ms a frame, %.3f us a particle-frame\n", life * 1e3 / FRAMES,
                life * 1e6 / (FRAMES * COUNT));
    std::printf("particles/plain objects over the same life: %.2f\n", life / plain);
  }

  ot::GameManager::getInstance().shutDown();
  return 0;
}
