#pragma once

#include <string>

// The game's set-up, called by main between engine start-up and the loop.

// Loads the game's sprites from sprites/.
void loadGameSprites();
// Loads one sprite; a missing or bad file is logged and skipped.
void loadGameSprite(std::string file, std::string label);
// Sets the world's geometry and creates the objects a run starts with.
void populateWorld();
// Creates the HUD items.
void createHud();
