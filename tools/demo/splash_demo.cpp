// The engine's splash, then a small scene where a key rings a chime over a
// looping tune. Both sounds are made at build time by ostrel-make-sounds.
// Where there is no sound device everything runs the same, silently.
//
//   ostrel-splash-demo                   plays: SPACE rings the chime, Q quits
//   ostrel-splash-demo <screenshot.png>  plays itself, pressing SPACE once, and
//                                        saves the splash to <screenshot.png>
//                                        and the scene beside it, "-scene"
//                                        before the extension
//
// Reads ot-font.ttf from the working directory, or the system's DejaVu Sans
// Mono when there is none.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "engine/core/Config.h"
#include "engine/core/EventKeyboard.h"
#include "engine/core/EventStep.h"
#include "engine/core/EventView.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/effects/Particles.h"
#include "engine/effects/Splash.h"
#include "engine/presentation/AudioOutput.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/presentation/InputManager.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/presentation/ViewObject.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"

namespace {

using ot::Vector;

constexpr int SPLASH_SHOT_STEP = 80;  // the creature at rest beside the name
constexpr int SCENE_KEY_STEP = 10;
constexpr int SCENE_SHOT_STEP = 16;

std::string withSuffix(const std::string& path, const std::string& suffix) {
  std::string::size_type dot = path.rfind('.');
  if (dot == std::string::npos) return path + suffix;
  return path.substr(0, dot) + suffix + path.substr(dot);
}

// Rings the chime on SPACE, with a burst of sparks to see it by; Q quits.
class Bell : public ot::Object {
 public:
  Bell() {
    setType("Bell");
    setSolidness(ot::SPECTRAL);
    setPosition(Vector(40, 12));
    registerInterest(ot::KEYBOARD_EVENT);
  }
  int eventHandler(const ot::Event* p_e) override {
    if (p_e->getType() != ot::KEYBOARD_EVENT) return 0;
    auto* p_key = static_cast<const ot::EventKeyboard*>(p_e);
    if (p_key->getKeyboardAction() != ot::KEY_PRESSED) return 0;
    if (p_key->getKey() == ot::Keyboard::Q || p_key->getKey() == ot::Keyboard::ESCAPE) {
      ot::GameManager::getInstance().setGameOver(true);
      return 1;
    }
    if (p_key->getKey() != ot::Keyboard::SPACE) return 0;
    if (ot::Sound* p_chime = ot::ResourceManager::getInstance().getSound("chime")) p_chime->play();
    ot::addParticles(ot::SPARKS, getPosition(), 1.5f, ot::YELLOW);
    ot::EventView count("Chimes", 1, true);
    ot::WorldManager::getInstance().onEvent(&count);
    m_rung++;
    return 1;
  }
  int draw() override {
    const ot::DisplayManager& display = ot::DisplayManager::getInstance();
    display.drawString(Vector(40, 8), "A tune is playing.", ot::CENTER_JUSTIFIED, ot::WHITE);
    display.drawString(Vector(40, 16), "SPACE rings the chime over it, Q quits.", ot::CENTER_JUSTIFIED,
                       ot::CYAN);
    return display.drawCh(getPosition(), '*', ot::YELLOW);
  }
  int rung() const { return m_rung; }

 private:
  int m_rung = 0;
};

// Plays the demo by itself: saves the splash, presses SPACE in the scene,
// saves the scene and ends. Counts the steps of each run on its own.
class Autopilot : public ot::Object {
 public:
  explicit Autopilot(std::string shot) : m_shot(std::move(shot)) {
    setSolidness(ot::SPECTRAL);
    setVisible(false);
    registerInterest(ot::STEP_EVENT);
  }
  void startScene() { m_in_scene = true; }
  int eventHandler(const ot::Event* p_e) override {
    if (p_e->getType() != ot::STEP_EVENT) return 0;
    int step = static_cast<const ot::EventStep*>(p_e)->getStepCount();
    ot::DisplayManager& display = ot::DisplayManager::getInstance();
    // Before this frame's swap the back buffer still holds the last frame.
    if (!m_in_scene && step == SPLASH_SHOT_STEP) m_saved += display.saveScreenshot(m_shot) == 0;
    if (m_in_scene && step == SCENE_KEY_STEP) {
      ot::EventKeyboard space;
      space.setKey(ot::Keyboard::SPACE);
      space.setKeyboardAction(ot::KEY_PRESSED);
      ot::InputManager::getInstance().onEvent(&space);
    }
    if (m_in_scene && step == SCENE_SHOT_STEP) {
      m_saved += display.saveScreenshot(withSuffix(m_shot, "-scene")) == 0;
      ot::GameManager::getInstance().setGameOver(true);
    }
    return 1;
  }
  bool saved() const { return m_saved == 2; }

 private:
  std::string m_shot;
  bool m_in_scene = false;
  int m_saved = 0;
};

ot::ViewObject* hudItem(std::string text, int location, ot::Color color, bool value) {
  auto* p_item = new ot::ViewObject;
  p_item->setLocation(location);
  p_item->setViewString(std::move(text));
  p_item->setDrawValue(value);
  p_item->setColor(color);
  return p_item;
}

}  // namespace

int main(int argc, char** argv) {
  std::string shot = argc > 1 ? argv[1] : "";
  setenv("OSTREL_CONFIG", "/dev/null", 1);
  ot::Config& config = ot::Config::getInstance();
  config.setNetworking(false);
  config.setFontFile(ot::findFontFile());
  ot::GameManager& game = ot::GameManager::getInstance();
  if (game.startUp() != 0) {
    std::fprintf(stderr, "splash demo: the engine didn't start (see ostrel.log)\n");
    game.shutDown();
    return 1;
  }
  ot::LogManager::getInstance().setFlush(true);
  ot::ResourceManager& resources = ot::ResourceManager::getInstance();
  const std::string sounds = OSTREL_DEMO_SOUNDS_DIR;
  if (resources.loadSound(sounds + "/chime.wav", "chime") != 0 ||
      resources.loadMusic(sounds + "/tune.wav", "tune") != 0) {
    std::fprintf(stderr, "splash demo: the sounds in %s are missing; build ostrel-demo-sounds\n",
                 sounds.c_str());
    game.shutDown();
    return 1;
  }

  Autopilot* p_autopilot = shot.empty() ? nullptr : new Autopilot(shot);
  ot::splash();

  if (p_autopilot) p_autopilot->startScene();
  auto* p_bell = new Bell;
  hudItem("Ostrel splash demo", ot::TOP_CENTER, ot::GREEN, false);
  hudItem("Chimes", ot::TOP_LEFT, ot::YELLOW, true);
  if (ot::AudioOutput::getInstance().isSilent())
    hudItem("no sound device: silent", ot::BOTTOM_CENTER, ot::RED, false);
  ot::Music* p_tune = resources.getMusic("tune");
  p_tune->play();
  game.run();
  p_tune->stop();
  int rung = p_bell->rung();
  bool silent = ot::AudioOutput::getInstance().isSilent();
  bool saved = !p_autopilot || p_autopilot->saved();
  game.shutDown();
  if (!saved) {
    std::fprintf(stderr, "splash demo: can't write %s\n", shot.c_str());
    return 1;
  }
  std::printf("splash demo: the chime rang %d time%s over the tune%s\n", rung, rung == 1 ? "" : "s",
              silent ? ", silently: there is no sound device" : "");
  if (!shot.empty())
    std::printf("splash demo: screenshots in %s and %s\n", shot.c_str(), withSuffix(shot, "-scene").c_str());
  return 0;
}
