// A headless game whose every frame works 40 ms, longer than a 33 ms frame
// time, so that any jump of the clock falls inside a frame's work. Each step
// prints the wall-clock time and the step count on standard output, for a
// test to watch the loop go on. It ends on SIGINT or SIGTERM, or by itself
// after LAST_STEP steps should nobody ask.
//
//   OSTREL_CONFIG=... OSTREL_LOG=... ostrel-slow-frames

#include <cstdio>

#include "engine/core/EventStep.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/core/Utility.h"
#include "engine/platform/Platform.h"
#include "engine/world/Object.h"

namespace {

constexpr int WORK_MS = 40;
constexpr int LAST_STEP = 750;

class SlowStep : public ot::Object {
 public:
  SlowStep() {
    setType("SlowStep");
    setSolidness(ot::SPECTRAL);
    setVisible(false);
    registerInterest(ot::STEP_EVENT);
  }
  int eventHandler(const ot::Event* p_e) override {
    if (p_e->getType() != ot::STEP_EVENT) return 0;
    int step = static_cast<const ot::EventStep*>(p_e)->getStepCount();
    std::printf("%s %d\n", ot::getTimeString(), step);
    std::fflush(stdout);
    ot::platform::sleepMilliseconds(WORK_MS);
    if (step >= LAST_STEP) ot::GameManager::getInstance().setGameOver(true);
    return 1;
  }
};

}  // namespace

int main() {
  ot::GameManager& game_manager = ot::GameManager::getInstance();
  if (game_manager.startUp() != 0) {
    game_manager.shutDown();
    return 1;
  }
  ot::LogManager::getInstance().setFlush(true);
  new SlowStep;
  game_manager.run();
  game_manager.shutDown();
  return 0;
}
