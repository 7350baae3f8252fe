#include "game/Setup.h"

// The game's levels, creatures and HUD arrive with the game itself; until
// then a run is an empty world.

void loadGameSprites() {}

void loadGameSprite(std::string, std::string) {}

void populateWorld() {}

void createHud() {}
