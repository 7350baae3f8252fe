#pragma once

#include <string>

#include "engine/core/Types.h"
#include "engine/core/Vector.h"
#include "engine/world/Object.h"

// The end screen: made when the hero dies, it shows the score and kills over
// the still-running world and ends the game 120 steps later. Owned by the world.
class GameOver : public ot::Object {
 public:
  GameOver(int score, int kills);
  ~GameOver() override = default;

  // Counts down on step events (1); 0 otherwise.
  int eventHandler(const ot::Event* p_e) override;
  // Always 0.
  int draw() override;

  int getCountdown() const { return m_countdown; }

 private:
  // A centred line at row offset from the origin, both in view spaces.
  void drawLine(ot::Vector origin, int row, const std::string& text, ot::Color color) const;

  int m_score;
  int m_kills;
  int m_countdown = 120;  // steps
};
