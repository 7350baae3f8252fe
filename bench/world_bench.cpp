// The world's per-frame cost: WorldManager::update with N moving objects, solid
// (collision-tested through the grid) and spectral (never tested), and
// getCollisions on a crowded and on an empty cell. The world grows with N so
// that the density stays the same: with the grid, the cost per object should
// then stay flat as N grows.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "bench/support/RatioReporter.h"
#include "engine/core/Config.h"
#include "engine/core/GameManager.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"

namespace {

ot::WorldManager& world() { return ot::WorldManager::getInstance(); }

void clearWorld() {
  world().markForDelete(world().getAllObjects(true));
  world().update();
}

// N objects on a world of 25 cells each, moving a fraction of a cell a step;
// their directions flip between updates so that they stay in the world.
void populate(int n, ot::Solidness solidness) {
  clearWorld();
  float side = std::ceil(std::sqrt(25.0f * static_cast<float>(n)));
  world().setBoundary(ot::Box(ot::Vector(0, 0), side, side));
  srand(1);
  for (int i = 0; i < n; i++) {
    auto* p_o = new ot::Object;
    p_o->setSolidness(solidness);
    p_o->setPosition(ot::Vector(1 + static_cast<float>(rand() % static_cast<int>(side - 2)),
                                1 + static_cast<float>(rand() % static_cast<int>(side - 2))));
    p_o->setVelocity(ot::Vector(static_cast<float>(rand() % 100 - 50) / 200.0f,
                                static_cast<float>(rand() % 100 - 50) / 200.0f));
  }
}

void flipDirections() {
  ot::ObjectList all = world().getAllObjects();
  for (int i = 0; i < all.getCount(); i++) {
    ot::Vector v = all[i]->getVelocity();
    v.scale(-1);
    all[i]->setVelocity(v);
  }
}

void updateMovers(benchmark::State& state, ot::Solidness solidness) {
  int n = static_cast<int>(state.range(0));
  populate(n, solidness);
  for (auto _ : state) {
    world().update();
    state.PauseTiming();
    flipDirections();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * n);
  clearWorld();
}

void BM_UpdateSolidMovers(benchmark::State& state) { updateMovers(state, ot::SOFT); }
void BM_UpdateSpectralMovers(benchmark::State& state) { updateMovers(state, ot::SPECTRAL); }
BENCHMARK(BM_UpdateSolidMovers)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_UpdateSpectralMovers)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

// A query object, and `crowd` solid objects sharing its grid cell.
void collisions(benchmark::State& state, int crowd) {
  clearWorld();
  world().setBoundary(ot::Box(ot::Vector(0, 0), 200, 80));
  for (int i = 0; i < crowd; i++) {
    auto* p_o = new ot::Object;
    p_o->setSolidness(ot::SOFT);
    p_o->setPosition(ot::Vector(5 + static_cast<float>(i % 10), 2 + static_cast<float>(i / 10 % 5)));
  }
  auto* p_query = new ot::Object;
  p_query->setSolidness(ot::SOFT);
  p_query->setPosition(ot::Vector(150, 60));
  ot::Vector where = crowd > 0 ? ot::Vector(9, 4) : ot::Vector(150, 60);
  for (auto _ : state) benchmark::DoNotOptimize(world().getCollisions(p_query, where));
  clearWorld();
}

void BM_GetCollisionsCrowdedCell(benchmark::State& state) { collisions(state, 50); }
void BM_GetCollisionsEmptyCell(benchmark::State& state) { collisions(state, 0); }
BENCHMARK(BM_GetCollisionsCrowdedCell);
BENCHMARK(BM_GetCollisionsEmptyCell);

}  // namespace

int main(int argc, char** argv) {
  setenv("OSTREL_CONFIG", "/dev/null", 1);
  setenv("OSTREL_LOG", "/tmp/ostrel-world-bench.log", 0);
  ot::Config::getInstance().setHeadless(true);
  ot::Config::getInstance().setNetworking(false);
  if (ot::GameManager::getInstance().startUp() != 0) {
    std::fprintf(stderr, "the engine didn't start\n");
    return 1;
  }
  benchmark::Initialize(&argc, argv);
  ot_bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  for (const char* kind : {"Solid", "Spectral"}) {
    std::string name = std::string("BM_Update") + kind + "Movers/";
    double small = reporter.seconds(name + "100") / 100;
    double large = reporter.seconds(name + "10000") / 10000;
    if (small > 0 && large > 0)
      std::printf("%s movers: %.3f us an object at N=100, %.3f us at N=10000; ratio %.2f\n", kind,
                  small * 1e6, large * 1e6, large / small);
  }
  double crowded = reporter.seconds("BM_GetCollisionsCrowdedCell");
  double empty = reporter.seconds("BM_GetCollisionsEmptyCell");
  if (crowded > 0 && empty > 0) std::printf("getCollisions crowded/empty cell: %.1f\n", crowded / empty);
  ot::GameManager::getInstance().shutDown();
  return 0;
}
