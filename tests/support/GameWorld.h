#pragma once

#include <string>

#include "engine/core/Vector.h"
#include "engine/presentation/InputManager.h"  // the key codes of key()
#include "tests/support/HeadlessEngine.h"

class GridEntity;
class Hero;

namespace ot_test {

// The headless engine with the game's world geometry (a 300 by 90 boundary,
// an 80 by 24 view) and the game's global state back at its start values.
// Tests add the objects they need; makeLevel and makeHero give the usual two.
class GameWorld : public HeadlessEngine {
 protected:
  void SetUp() override;
  void TearDown() override;

  // The map; floor index 0 is current.
  static void makeLevel();
  // The map and a hero on its start tile.
  static Hero* makeHero();

  // A plain creature that stands where it is put.
  static GridEntity* creatureAt(int x, int y, int hp);

  // One keyboard event to whoever registered for keys.
  static void key(int key, int action);
  // One mouse event at a world position (converted to the view's spaces).
  static void mouse(int action, int button, ot::Vector world_pos);
  // Step events alone, without the rest of the frame (no deletions, no drawing).
  static void step(int n = 1);
  // Objects of a type in the world, including those marked for deletion.
  static int countOf(const std::string& type);
  // The value a HUD item shows, or -1 when no item has the tag.
  static int hudValue(const std::string& tag);
  // Loads the game's sprites from the repository, whatever the working directory.
  static void loadSprites();
};

}  // namespace ot_test
