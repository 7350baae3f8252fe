#pragma once

#include "engine/core/Manager.h"

namespace ot {

// The outermost manager: starts every other manager in a fixed order, runs the
// game loop at a fixed frame time and stops them in reverse. One frame is: the
// step event, swap buffers, input, world update, world draw, network, path
// finding in the time left, then sleep for the rest of the frame.
//
//   if (GameManager::getInstance().startUp() == 0) GameManager::getInstance().run();
//   GameManager::getInstance().shutDown();
class GameManager : public Manager {
 public:
  // How the loop waits; tests put a fake here to run frames without sleeping.
  using SleepFunction = void (*)(long milliseconds);

  static GameManager& getInstance();

  bool isValid(const std::string& event_type) const override;
  // Starts the managers; -1 (with a log line) when one fails.
  int startUp() override;
  // Stops in reverse order every manager that started.
  void shutDown() override;

  // Runs frames until game over; each call starts afresh at step 0.
  void run();

  void setGameOver(bool game_over = true) { m_game_over = game_over; }
  bool getGameOver() const { return m_game_over; }
  int getFrameTime() const { return m_frame_time; }
  int getStepCount() const { return m_step_count; }

  // Replaces the millisecond sleep; null puts the system's back.
  static void setSleepFunction(SleepFunction sleep);

 private:
  GameManager();

  bool m_game_over = false;
  int m_frame_time = 0;  // milliseconds
  int m_step_count = 0;  // frames completed in this run
};

}  // namespace ot
