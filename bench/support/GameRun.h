#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <unistd.h>

#include "engine/core/Event.h"
#include "engine/core/EventLabels.h"
#include "engine/core/GameManager.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"
#include "game/game.h"

namespace ot_bench {

// Stretches of the dungeon game through the real game loop, with the frame's
// sleep taken out, each from a fresh floor 1 as a run starts it (the hero,
// its 23 enemies, the spawner, the HUD and the timer), so that the hero is
// alive and the enemies are hunting it.
class GameRun {
 public:
  // Starts the engine with these settings (written to a file of their own:
  // the repository's ot-config.txt opens a window) and loads the game's
  // sprites from the repository. False when the engine didn't start.
  static bool start(const std::string& settings) {
    const char* config_path = "/tmp/ostrel-game-bench-config.txt";
    if (FILE* p_config = std::fopen(config_path, "w")) {
      std::fputs(settings.c_str(), p_config);
      std::fclose(p_config);
    }
    setenv("OSTREL_CONFIG", config_path, 1);
    if (ot::GameManager::getInstance().startUp() != 0) return false;
    ot::GameManager::setSleepFunction([](long) {});
    // The game reads its sprites from sprites/ under the working directory.
    if (chdir(OSTREL_SOURCE_DIR) != 0) return false;
    loadGameSprites();
    return true;
  }

  // A fresh floor 1, outside any measurement.
  static void freshWorld() {
    ot::WorldManager& world = ot::WorldManager::getInstance();
    world.markForDelete(world.getAllObjects(true));
    world.update();
    g_floor_visited[0] = true;
    g_floor_visited[1] = false;
    srand(1);
    populateWorld();
  }

  // Runs this many whole frames of the loop.
  static void frames(int n) {
    new StopAfter(n);
    ot::GameManager::getInstance().run();
  }

  // Times stretches of n frames, each from a fresh world made outside the timing.
  static void measure(benchmark::State& state, int n) {
    for (auto _ : state) {
      state.PauseTiming();
      freshWorld();
      state.ResumeTiming();
      frames(n);
    }
    state.SetItemsProcessed(state.iterations() * n);
  }

 private:
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
};

}  // namespace ot_bench
