#pragma once

#include <string>

// The game's set-up, called by main between engine start-up and the loop.

// Loads the nine sprites from sprites/ under the working directory.
void loadGameSprites();
// Loads one sprite with '.' drawn see-through; a missing or bad file is
// logged and skipped, and whatever wears it goes without a picture.
void loadGameSprite(const std::string& file, const std::string& label);
// Sets the world's geometry and creates the objects a run starts with: the
// Level first (the others find it), the Hero, the Spawner and its enemies,
// the HUD, the GameTimer.
void populateWorld();
// Creates the four HUD items.
void createHud();
