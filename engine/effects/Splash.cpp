#include "engine/effects/Splash.h"

#include <new>

#include "engine/core/Config.h"
#include "engine/core/Event.h"
#include "engine/core/EventLabels.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/effects/SplashOstrel.h"
#include "engine/presentation/Animation.h"
#include "engine/presentation/Sprite.h"
#include "engine/world/WorldManager.h"

namespace ot {

namespace {

constexpr int NAME_WIDTH = 47;
constexpr int NAME_HEIGHT = 8;

// The letters keep clear of the last six columns, where the creature lands.
const char* const NAME_SLANTED =
    "    ####   ##### ###### #####  ###### ##       "
    "   ##  ## ##       ##   ##  ## ##     ##       "
    "  ##  ## ##       ##   ##  ## ##     ##        "
    "  ##  ##  ####    ##   #####  #####  ##        "
    " ##  ##     ##   ##   ## ##  ##     ##         "
    " ##  ##     ##   ##   ##  ## ##     ##         "
    " ####  #####    ##   ##  ## ###### ######      "
    "                                               ";

const char* const NAME_UPRIGHT =
    " ####   ##### ###### #####  ###### ##          "
    "##  ## ##       ##   ##  ## ##     ##          "
    "##  ## ##       ##   ##  ## ##     ##          "
    "##  ##  ####    ##   #####  #####  ##          "
    "##  ##     ##   ##   ## ##  ##     ##          "
    "##  ##     ##   ##   ##  ## ##     ##          "
    " ####  #####    ##   ##  ## ###### ######      "
    "   a game engine drawn in characters           ";

}  // namespace

Splash::Splash() {
  m_p_sprite.reset(new (std::nothrow) Sprite(2));
  if (m_p_sprite) {
    m_p_sprite->setLabel("splash");
    m_p_sprite->setWidth(NAME_WIDTH);
    m_p_sprite->setHeight(NAME_HEIGHT);
    m_p_sprite->setColor(GREEN);
    m_p_sprite->addFrame(Frame(NAME_WIDTH, NAME_HEIGHT, NAME_SLANTED));
    m_p_sprite->addFrame(Frame(NAME_WIDTH, NAME_HEIGHT, NAME_UPRIGHT));
  }
  Animation animation;
  animation.setSprite(m_p_sprite.get());
  animation.setSlowdownCount(-1);  // the slanted name stays until the countdown turns it
  setAnimation(animation);
  setType("Splash");
  setSolidness(SPECTRAL);

  Box view = WorldManager::getInstance().getView();
  float width = getBox().getHorizontal();
  float y = view.getCorner().getY() + view.getVertical() / 2.0f;
  float x = view.getCorner().getX() + view.getHorizontal() + width / 2.0f;
  setPosition(Vector(x, y));
  // About 16 steps to the stop 11 spaces past the middle at the default frame
  // time; the countdown halts it sooner.
  // Departure: a frame time below 2 counts as 2, where the halved time in
  // whole milliseconds would divide by zero.
  float distance = view.getHorizontal() / 2.0f + width / 2.0f + 11.0f;
  int half_frame = Config::getInstance().getFrameTime() / 2;
  if (half_frame < 1) half_frame = 1;
  setVelocity(Vector(-distance / static_cast<float>(half_frame), 0.0f));

  registerInterest(STEP_EVENT);
  registerInterest(KEYBOARD_EVENT);
}

Splash::~Splash() = default;

SplashCue splashCue(Object* p_picture, const Event* p_e) {
  GameManager& game = GameManager::getInstance();
  if (game.getGameOver()) {
    WorldManager::getInstance().markForDelete(p_picture);
    return SplashCue::GONE;
  }
  if (p_e->getType() != KEYBOARD_EVENT) return SplashCue::NONE;
  game.setGameOver(true);
  WorldManager::getInstance().markForDelete(p_picture);
  return SplashCue::KEY;
}

int Splash::eventHandler(const Event* p_e) {
  if (splashCue(this, p_e) != SplashCue::NONE || p_e->getType() != STEP_EVENT) return 0;
  m_countdown--;
  if (m_countdown == 0) {
    Animation animation = getAnimation();
    animation.setIndex(1);
    setAnimation(animation);
    setVelocity(Vector(0.0f, 0.0f));
    Vector here = getPosition();
    new (std::nothrow) SplashOstrel(Vector(here.getX() + 24.0f, here.getY() + 1.0f));
  }
  // Only an earlier run cut short leaves the name in the world this long.
  if (m_countdown == -75) WorldManager::getInstance().markForDelete(this);
  return 1;
}

int splash() {
  LogManager& log = LogManager::getInstance();
  log.writeLog(LOG_DEBUG, "splash(): Started.");
  GameManager& game = GameManager::getInstance();
  if (!game.isStarted()) {
    // Kept quirk: the misspelling; log readers search for it.
    log.writeLog("splash(): Error! Cannot run splash screen until game manger is started.");
    return -1;
  }
  if (!new (std::nothrow) Splash) {
    log.writeLog("splash(): Error! Cannot allocate Splash.");
    return -1;
  }
  game.run();
  log.writeLog(LOG_DEBUG, "splash(): Finished.");
  return 0;
}

}  // namespace ot
