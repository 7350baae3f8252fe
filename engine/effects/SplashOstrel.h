#pragma once

#include <memory>

#include "engine/core/Vector.h"
#include "engine/world/Object.h"

namespace ot {

class Event;
class Sprite;

// The winged creature of the splash sequence: it rises from below the view
// to its end position in 30 steps, beating its wings, holds there, then
// settles into its resting picture and ends the sequence by setting game
// over. Made by Splash; owns its sprites, which it builds itself.
class SplashOstrel : public Object {
 public:
  // Starts below the view, straight under end_position.
  explicit SplashOstrel(Vector end_position);
  ~SplashOstrel() override;

  // Counts down on each step: stops once at or past its end, changes to the
  // resting picture at -15, sets game over at -45. A key sets game over too.
  // 1 for a step or a key, 0 for anything else.
  int eventHandler(const Event* p_e) override;

 private:
  Vector m_end_position;
  int m_countdown = 30;
  std::unique_ptr<Sprite> m_p_sprite;  // its own, not the ResourceManager's
};

}  // namespace ot
