#pragma once

#include <memory>

#include "engine/world/Object.h"

namespace ot {

class Event;
class Sprite;

// The engine's title sequence, run by splash() in a game loop of its own
// before a game starts: the name slides in from the right in slanted letters,
// stands up straight once it stops, and a SplashOstrel flies up to settle
// beside it. Any key ends it at once; without one it lasts 90 steps.
//
//   if (GameManager::getInstance().startUp() == 0) {
//     splash();                         // returns when the sequence is over
//     GameManager::getInstance().run();  // the game proper
//   }
//
// The sprite is built here and owned by the object, not by the ResourceManager.
class Splash : public Object {
 public:
  // Just outside the view's right edge, on its middle row, moving left.
  Splash();
  ~Splash() override;

  // Counts down on each step: at 0 the name stops, turns upright and sends the
  // creature out; at -75 it leaves, for a run that ended before. A key sets
  // game over. 1 for a step, 0 for anything else.
  int eventHandler(const Event* p_e) override;

 private:
  int m_countdown = 15;
  std::unique_ptr<Sprite> m_p_sprite;  // its own, not the ResourceManager's
};

// Shows the splash sequence until it ends or a key is pressed; -1 (with a log
// line) before the GameManager has started. The world owns the objects it
// makes; game over is clear again when the next run starts.
int splash();

// How a splash picture meets an event before its own steps: GONE once the game
// is over, KEY for a key, which ends the splash; either way the picture is
// marked for deletion.
enum class SplashCue { NONE, GONE, KEY };
SplashCue splashCue(Object* p_picture, const Event* p_e);

}  // namespace ot
