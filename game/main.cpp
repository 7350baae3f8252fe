// The game's entry: start the engine, build one run's world, play it, stop.

#include "engine/ostrel.h"
#include "game/game.h"

int main() {
  ot::GameManager& game_manager = ot::GameManager::getInstance();
  if (game_manager.startUp() != 0) {
    ot::LogManager::getInstance().writeLog("Error starting game manager!");
    game_manager.shutDown();
    return 1;
  }
  ot::LogManager::getInstance().setFlush(true);
  loadGameSprites();
  populateWorld();
  game_manager.run();
  game_manager.shutDown();
  return 0;
}
