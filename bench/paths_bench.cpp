// One whole path search on each of the three shared 300 x 90 grids
// (bench/grids/, described in bench/grids/README.md), beside a reference A*
// (libtcod's) on the same cells with the same movement rule: 8 neighbours, a
// diagonal refused only when both flanks are walls, straight steps 1 and
// diagonal ones sqrt 2. Prints each search's time and its ratio to the
// reference's, in CPU time measured in the same run, and checks that both
// paths have the lengths the grids' README gives. Beside them, the cost of
// asking the world about each cell once, also as a ratio to the reference.

#include <benchmark/benchmark.h>
#include <libtcod/path.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "bench/support/RatioReporter.h"
#include "engine/core/Config.h"
#include "engine/core/GameManager.h"
#include "engine/paths/PathFind.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"

namespace {

constexpr int WIDTH = 300;
constexpr int HEIGHT = 90;

struct GridCase {
  const char* name;
  int steps;  // the path's length in steps, without its start
};
const GridCase GRIDS[] = {{"random30", 304}, {"maze", 6673}, {"open", 297}};

// Rows of '#' (wall) and '.' (floor).
std::vector<std::string> readGrid(const std::string& name) {
  std::ifstream file(std::string(OSTREL_SOURCE_DIR) + "/bench/grids/" + name + ".txt");
  std::vector<std::string> rows;
  for (std::string row; std::getline(file, row);) rows.push_back(row);
  if (rows.size() != HEIGHT) {
    std::fprintf(stderr, "grid %s: %zu rows, not %d\n", name.c_str(), rows.size(), HEIGHT);
    std::exit(1);
  }
  return rows;
}

ot::WorldManager& world() { return ot::WorldManager::getInstance(); }

// The world holds one grid at a time, as one hard object of the default box
// on each wall; loading takes far longer than a search, so it stays loaded.
void loadWorld(const std::string& name) {
  static std::string loaded;
  if (loaded == name) return;
  world().markForDelete(world().getAllObjects(true));
  world().update();
  world().setBoundary(ot::Box(ot::Vector(0, 0), WIDTH, HEIGHT));
  std::vector<std::string> rows = readGrid(name);
  for (int y = 0; y < HEIGHT; y++)
    for (int x = 0; x < WIDTH; x++)
      if (rows[y][x] == '#')
        (new ot::Object)->setPosition(ot::Vector(static_cast<float>(x), static_cast<float>(y)));
  loaded = name;
}

void pathFind(benchmark::State& state, const GridCase& grid) {
  loadWorld(grid.name);
  auto* p_seeker = new ot::Object;
  p_seeker->setSolidness(ot::SPECTRAL);
  p_seeker->setPosition(ot::Vector(1, 1));
  int size = 0;
  for (auto _ : state) {
    ot::PathFind find(p_seeker, ot::Vector(1, 1), ot::Vector(WIDTH - 2, HEIGHT - 2));
    while (find.cycleOnce() == ot::PATH_SEARCHING) {
    }
    size = find.getPath().size();
    benchmark::DoNotOptimize(size);
  }
  world().markForDelete(p_seeker);
  world().update();
  if (size != grid.steps + 1) state.SkipWithError(("path of " + std::to_string(size) + " points").c_str());
}

// What asking the world about every cell once would cost, the least a search
// that asks it per cell pays on a grid it explores wholly: why the search
// reads the grid's hard objects in one pass instead.
void askWorld(benchmark::State& state, const GridCase& grid) {
  loadWorld(grid.name);
  auto* p_seeker = new ot::Object;
  p_seeker->setSolidness(ot::SPECTRAL);
  for (auto _ : state)
    for (int y = 0; y < HEIGHT; y++)
      for (int x = 0; x < WIDTH; x++)
        benchmark::DoNotOptimize(
            world().getCollisions(p_seeker, ot::Vector(static_cast<float>(x), static_cast<float>(y))));
  world().markForDelete(p_seeker);
  world().update();
}

// The reference's cost callback: 0 refuses the step.
float stepCost(int x_from, int y_from, int x_to, int y_to, void* p_data) {
  const auto& rows = *static_cast<const std::vector<std::string>*>(p_data);
  auto wall = [&rows](int x, int y) { return rows[y][x] == '#'; };
  if (wall(x_to, y_to)) return 0;
  if (x_from == x_to || y_from == y_to) return 1;
  if (wall(x_to, y_from) && wall(x_from, y_to)) return 0;
  return 1.41421356f;
}

void reference(benchmark::State& state, const GridCase& grid) {
  std::vector<std::string> rows = readGrid(grid.name);
  int size = 0;
  for (auto _ : state) {
    TCOD_path_t path = TCOD_path_new_using_function(WIDTH, HEIGHT, stepCost, &rows, 1.0f);
    TCOD_path_compute(path, 1, 1, WIDTH - 2, HEIGHT - 2);
    size = TCOD_path_size(path);
    // Walking hands the steps out one by one; its path_get would start from
    // the origin for each.
    int x = 0, y = 0;
    while (TCOD_path_walk(path, &x, &y, false)) benchmark::DoNotOptimize(x + y);
    TCOD_path_delete(path);
  }
  if (size != grid.steps) state.SkipWithError(("path of " + std::to_string(size) + " steps").c_str());
}

}  // namespace

int main(int argc, char** argv) {
  setenv("ALSOFT_DRIVERS", "null", 0);
  setenv("OSTREL_CONFIG", "/dev/null", 1);
  setenv("OSTREL_LOG", "/tmp/ostrel-paths-bench.log", 0);
  ot::Config::getInstance().setHeadless(true);
  ot::Config::getInstance().setNetworking(false);
  if (ot::GameManager::getInstance().startUp() != 0) {
    std::fprintf(stderr, "the engine didn't start\n");
    return 1;
  }
  for (const GridCase& grid : GRIDS) {
    benchmark::RegisterBenchmark((std::string("BM_Paths/PathFind/") + grid.name).c_str(), pathFind, grid)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((std::string("BM_Paths/libtcod/") + grid.name).c_str(), reference, grid)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((std::string("BM_Paths/AskWorldEveryCell/") + grid.name).c_str(), askWorld,
                                 grid)
        ->Unit(benchmark::kMillisecond);
  }
  benchmark::Initialize(&argc, argv);
  ot_bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::printf("\n%-10s %12s %12s %8s %22s\n", "grid", "PathFind ms", "libtcod ms", "ratio",
              "world per cell, ratio");
  for (const GridCase& grid : GRIDS) {
    double ours = reporter.cpuSeconds(std::string("BM_Paths/PathFind/") + grid.name);
    double theirs = reporter.cpuSeconds(std::string("BM_Paths/libtcod/") + grid.name);
    double asked = reporter.cpuSeconds(std::string("BM_Paths/AskWorldEveryCell/") + grid.name);
    if (ours > 0 && theirs > 0)
      std::printf("%-10s %12.3f %12.3f %8.2f %22.2f\n", grid.name, ours * 1e3, theirs * 1e3, ours / theirs,
                  asked / theirs);
  }
  ot::GameManager::getInstance().shutDown();
  return 0;
}
