#include "engine/effects/SplashOstrel.h"

#include <new>
#include <string>
#include <utility>
#include <vector>

#include "engine/core/Event.h"
#include "engine/core/EventLabels.h"
#include "engine/core/GameManager.h"
#include "engine/effects/Splash.h"
#include "engine/presentation/Animation.h"
#include "engine/presentation/Sprite.h"
#include "engine/world/WorldManager.h"

namespace ot {

namespace {

// Seen from above, flying up the screen: wings level, then raised.
const std::vector<std::string> FLYING = {
    "     ^     "
    "    (_)    "
    "\\___/ \\___/"
    " \\__   __/ "
    "    | |    "
    "    |_|    "
    "    /_\\    ",
    "     ^     "
    " \\  (_)  / "
    "  \\_/ \\_/  "
    "    | |    "
    "    | |    "
    "    |_|    "
    "    /_\\    ",
};

// Wings folded, with the last of its trail below it.
const std::string RESTING =
    "    ^    "
    "   (_)   "
    "  /   \\  "
    "  \\ | /  "
    "   \\|/   "
    "    :    ";

std::unique_ptr<Sprite> makeSprite(int width, int height, Color color,
                                   const std::vector<std::string>& frames) {
  std::unique_ptr<Sprite> p_sprite(new (std::nothrow) Sprite(static_cast<int>(frames.size())));
  if (!p_sprite) return nullptr;
  p_sprite->setWidth(width);
  p_sprite->setHeight(height);
  p_sprite->setColor(color);
  for (const std::string& frame : frames) p_sprite->addFrame(Frame(width, height, frame));
  return p_sprite;
}

}  // namespace

SplashOstrel::SplashOstrel(Vector end_position) : m_end_position(end_position) {
  m_p_sprite = makeSprite(11, 7, BLUE, FLYING);
  if (m_p_sprite) {
    m_p_sprite->setLabel("splash-ostrel");
    m_p_sprite->setSlowdown(2);
  }
  Animation animation;
  animation.setSprite(m_p_sprite.get());
  setAnimation(animation);
  setType("SplashOstrel");
  setSolidness(SPECTRAL);

  Box view = WorldManager::getInstance().getView();
  Vector start(end_position.getX(), view.getCorner().getY() + view.getVertical() + 6.0f);
  setPosition(start);
  setVelocity(Vector(0.0f, -(start.getY() - end_position.getY()) / 30.0f));  // there in 30 steps

  registerInterest(STEP_EVENT);
  registerInterest(KEYBOARD_EVENT);
}

SplashOstrel::~SplashOstrel() = default;

int SplashOstrel::eventHandler(const Event* p_e) {
  const SplashCue cue = splashCue(this, p_e);
  if (cue != SplashCue::NONE) return cue == SplashCue::KEY ? 1 : 0;
  if (p_e->getType() != STEP_EVENT) return 0;
  GameManager& game = GameManager::getInstance();
  WorldManager& world = WorldManager::getInstance();
  m_countdown--;
  // Kept quirk: rounding may carry it a step past its end; it stops wherever
  // it is then, as the splash always has.
  if (m_countdown < 1 && m_end_position.getY() >= getPosition().getY()) setVelocity(Vector(0.0f, 0.0f));
  if (m_countdown == -15) {
    std::unique_ptr<Sprite> p_resting = makeSprite(9, 6, GREEN, {RESTING});
    Animation animation;
    animation.setSprite(p_resting.get());
    // Kept quirk: past the only frame, so the first drawing shows nothing; the
    // animation wraps it to 0 after it.
    animation.setIndex(1);
    setAnimation(animation);
    m_p_sprite = std::move(p_resting);
    setPosition(getPosition() + Vector(-1.0f, 0.0f));  // the narrower picture, kept in line
  }
  if (m_countdown == -45) {
    game.setGameOver(true);
    world.markForDelete(this);
  }
  return 1;
}

}  // namespace ot
