// A small world at work on a real window: a sprite loaded from a file walks
// across a world wider than the window while the view follows it, HUD items
// count its steps, and a burst of sparks goes off around it; then a
// screenshot of the last frame drawn is saved.
//
//   ostrel-world-demo [screenshot.png]     (default world-demo.png)
//
// Run it from the repository root: it reads sprites/examples/ and
// ot-font.ttf there (or the system's DejaVu Sans Mono when there is none).

#include <cstdio>
#include <string>

#include "engine/core/Config.h"
#include "engine/core/EventStep.h"
#include "engine/core/EventView.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/effects/Particles.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/presentation/ViewObject.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"

namespace {

using ot::Vector;

constexpr int SHOT_STEP = 60;

// A fence post drawn as one character, so that the scrolling shows.
class Post : public ot::Object {
 public:
  explicit Post(Vector where) {
    setSolidness(ot::SPECTRAL);
    setAltitude(0);
    setPosition(where);
  }
  int draw() override { return ot::DisplayManager::getInstance().drawCh(getPosition(), '|', ot::GREEN); }
};

// Runs the show: counts steps on the HUD, sets the sparks off, takes the picture.
class Director : public ot::Object {
 public:
  Director(Object* p_walker, std::string shot) : m_p_walker(p_walker), m_shot(std::move(shot)) {
    setSolidness(ot::SPECTRAL);
    setVisible(false);
    registerInterest(ot::STEP_EVENT);
  }
  int eventHandler(const ot::Event* p_e) override {
    if (p_e->getType() != ot::STEP_EVENT) return 0;
    int step = static_cast<const ot::EventStep*>(p_e)->getStepCount();
    ot::EventView count("Steps", 1, true);
    ot::WorldManager::getInstance().onEvent(&count);
    int view_x = static_cast<int>(ot::WorldManager::getInstance().getView().getCorner().getX());
    ot::EventView view("View x", view_x, false);
    ot::WorldManager::getInstance().onEvent(&view);
    if (step == SHOT_STEP - 4) ot::addParticles(ot::SPARKS, m_p_walker->getPosition(), 1.5f, ot::CUSTOM);
    if (step == SHOT_STEP) {
      // Before this frame's swap the back buffer still holds the last frame.
      m_saved = ot::DisplayManager::getInstance().saveScreenshot(m_shot) == 0;
      ot::GameManager::getInstance().setGameOver(true);
    }
    return 1;
  }
  bool saved() const { return m_saved; }

 private:
  Object* m_p_walker;
  std::string m_shot;
  bool m_saved = false;
};

}  // namespace

int main(int argc, char** argv) {
  std::string shot = argc > 1 ? argv[1] : "world-demo.png";
  setenv("OSTREL_CONFIG", "/dev/null", 1);
  ot::Config& config = ot::Config::getInstance();
  config.setNetworking(false);
  config.setFrameTime(20);
  config.setFontFile(ot::findFontFile());
  ot::GameManager& game = ot::GameManager::getInstance();
  if (game.startUp() != 0) {
    std::fprintf(stderr, "world demo: the engine didn't start (see ostrel.log)\n");
    game.shutDown();
    return 1;
  }
  ot::LogManager::getInstance().setFlush(true);
  if (ot::ResourceManager::getInstance().loadSprite("sprites/examples/coin-robust.txt", "coin") != 0) {
    std::fprintf(stderr, "world demo: run it from the repository root (sprites/examples/ not found)\n");
    game.shutDown();
    return 1;
  }

  ot::WorldManager& world = ot::WorldManager::getInstance();
  world.setBoundary(ot::Box(Vector(0, 0), 240, 24));
  world.setView(ot::Box(Vector(0, 0), 80, 24));
  world.setViewSlack(Vector(0.25f, 0.25f));
  for (int x = 0; x < 240; x += 8) new Post(Vector(static_cast<float>(x), 20));

  auto* p_walker = new ot::Object;
  p_walker->setType("Walker");
  p_walker->setSolidness(ot::SPECTRAL);
  p_walker->setSprite("coin");
  p_walker->setPosition(Vector(20, 12));
  p_walker->setVelocity(Vector(1.2f, 0));
  world.setViewFollowing(p_walker);

  auto* p_title = new ot::ViewObject;
  p_title->setViewString("Ostrel world demo");
  p_title->setDrawValue(false);
  p_title->setColor(ot::CYAN);
  auto* p_steps = new ot::ViewObject;
  p_steps->setLocation(ot::TOP_LEFT);
  p_steps->setViewString("Steps");
  p_steps->setColor(ot::YELLOW);
  auto* p_view = new ot::ViewObject;
  p_view->setLocation(ot::BOTTOM_RIGHT);
  p_view->setViewString("View x");
  p_view->setBorder(false);

  auto* p_director = new Director(p_walker, shot);
  game.run();
  bool saved = p_director->saved();
  float view_x = world.getView().getCorner().getX();
  game.shutDown();
  if (!saved) {
    std::fprintf(stderr, "world demo: can't write %s\n", shot.c_str());
    return 1;
  }
  std::printf("world demo: the view followed the walker to x %.1f; screenshot in %s\n", view_x, shot.c_str());
  return 0;
}
