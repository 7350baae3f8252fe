// A program that makes sound on the engine, started by AudioOutput_test.cpp
// so that the audio libraries meet a fresh process: it starts the engine
// (headless, as the settings file says), loads the WAV file it is given as a
// sound and as music, plays both for a few frames and stops. It prints
// "silent" or "playing"; its exit status is 0 when the start-up left the
// audio alone and both loads worked, 3 otherwise.
//
//   ostrel-audio-process <file.wav>

#include <cstdio>

#include "engine/core/EventLabels.h"
#include "engine/core/GameManager.h"
#include "engine/presentation/AudioOutput.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/world/Object.h"

namespace {

// Ends the run after a few steps.
class Stopper : public ot::Object {
 public:
  Stopper() {
    setSolidness(ot::SPECTRAL);
    registerInterest(ot::STEP_EVENT);
  }
  int eventHandler(const ot::Event*) override {
    if (++m_steps == 5) ot::GameManager::getInstance().setGameOver(true);
    return 1;
  }

 private:
  int m_steps = 0;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: ostrel-audio-process <file.wav>\n");
    return 2;
  }
  ot::GameManager& game = ot::GameManager::getInstance();
  if (game.startUp() != 0) {
    game.shutDown();
    return 1;
  }
  bool untouched = !ot::AudioOutput::getInstance().isOpen();
  ot::ResourceManager& resources = ot::ResourceManager::getInstance();
  bool loaded = resources.loadSound(argv[1], "sound") == 0 && resources.loadMusic(argv[1], "music") == 0;
  if (loaded) {
    resources.getSound("sound")->play();
    resources.getMusic("music")->play();
  }
  new Stopper;
  game.run();
  if (loaded) resources.getMusic("music")->stop();
  std::printf("%s\n", ot::AudioOutput::getInstance().isSilent() ? "silent" : "playing");
  game.shutDown();
  return untouched && loaded ? 0 : 3;
}
