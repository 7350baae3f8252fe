#include "game/Hero.h"

#include <cmath>

#include "engine/core/Event.h"
#include "engine/core/EventKeyboard.h"
#include "engine/core/EventLabels.h"
#include "engine/core/EventMouse.h"
#include "engine/core/EventView.h"
#include "engine/core/GameManager.h"
#include "engine/effects/Particles.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/presentation/InputManager.h"
#include "engine/world/Geometry.h"
#include "engine/world/WorldManager.h"
#include "game/Floors.h"
#include "game/GameOver.h"
#include "game/Level.h"
#include "game/Projectile.h"
#include "game/Shop.h"
#include "game/Slash.h"

namespace {

constexpr int MOVE_COOLDOWN = 5;
constexpr int MELEE_COOLDOWN = 8;
constexpr int RANGED_COOLDOWN = 12;
constexpr int INVULN_STEPS = 10;
constexpr int BLOCK_STEPS = 10;
constexpr int BLOCK_COOLDOWN = 25;

void countDown(int& timer) {
  if (timer > 0) timer--;
}

}  // namespace

Hero::Hero() {
  setType("Hero");
  setSprite("hero");
  setAltitude(3);
  registerInterest(ot::KEYBOARD_EVENT);
  registerInterest(ot::MOUSE_EVENT);
  registerInterest(ot::STEP_EVENT);
  m_hp = 10;
  m_max_hp = 10;
  if (Level* p_level = getLevel()) setGridPos(p_level->getStartX(), p_level->getStartY());
  m_mouse = ot::worldToView(getPosition());
  m_shop = new Shop(this);
  ot::WorldManager::getInstance().setViewFollowing(this);
  updateHud();
}

Hero::~Hero() {
  ot::WorldManager& world = ot::WorldManager::getInstance();
  world.setViewFollowing(nullptr);
  if (m_shop) world.markForDelete(m_shop);
}

int Hero::eventHandler(const ot::Event* p_e) {
  if (p_e->getType() == ot::KEYBOARD_EVENT) {
    handleKeyboard(static_cast<const ot::EventKeyboard*>(p_e));
    return 1;
  }
  if (p_e->getType() == ot::MOUSE_EVENT) {
    handleMouse(static_cast<const ot::EventMouse*>(p_e));
    return 1;
  }
  if (p_e->getType() == ot::STEP_EVENT) {
    handleStep();
    return 1;
  }
  return 0;
}

bool Hero::shopOpen() const { return m_shop && m_shop->isOpen(); }

void Hero::handleKeyboard(const ot::EventKeyboard* p_e) {
  bool shop_open = shopOpen();
  int key = p_e->getKey();
  int action = p_e->getKeyboardAction();
  if (action == ot::KEY_PRESSED && key == ot::Keyboard::E) {
    if (!m_shop) return;
    if (shop_open) {
      m_shop->close();
      return;
    }
    if (Level* p_level = getLevel()) {
      Tile tile = p_level->tileAt(m_gx, m_gy);
      if (tile == TILE_SHOP) {
        m_shop->open();
      } else if (tile == TILE_STAIRS) {
        useStairs(this);
      }
    }
    return;
  }
  if (action == ot::KEY_PRESSED && key == ot::Keyboard::Q) {
    ot::GameManager::getInstance().setGameOver(true);
    return;
  }
  if (shop_open) return;
  if (action == ot::KEY_PRESSED && (key == ot::Keyboard::LEFTSHIFT || key == ot::Keyboard::RIGHTSHIFT)) {
    startBlock();
    return;
  }
  if (action != ot::KEY_DOWN) return;
  switch (key) {
    case ot::Keyboard::A:
    case ot::Keyboard::LEFTARROW: tryStep(-1, 0); break;
    case ot::Keyboard::D:
    case ot::Keyboard::RIGHTARROW: tryStep(1, 0); break;
    case ot::Keyboard::W:
    case ot::Keyboard::UPARROW: tryStep(0, -1); break;
    case ot::Keyboard::S:
    case ot::Keyboard::DOWNARROW: tryStep(0, 1); break;
    default: break;
  }
}

void Hero::tryStep(int dx, int dy) {
  // A blocked step costs nothing, so turning away from a wall moves at once.
  if (m_move_cooldown < 1 && tryMove(dx, dy)) m_move_cooldown = MOVE_COOLDOWN;
}

void Hero::startBlock() {
  if (m_block_cooldown >= 1) return;
  m_block_timer = BLOCK_STEPS;
  m_block_cooldown = BLOCK_COOLDOWN;
}

void Hero::handleMouse(const ot::EventMouse* p_e) {
  m_mouse = p_e->getMousePosition();
  if (shopOpen()) return;
  // Only a click attacks: a held button doesn't repeat.
  if (p_e->getMouseAction() != ot::CLICKED) return;
  if (p_e->getMouseButton() == ot::Mouse::LEFT) meleeAttack();
  if (p_e->getMouseButton() == ot::Mouse::RIGHT) rangedAttack();
}

void Hero::handleStep() {
  // Runs on while the shop is open.
  countDown(m_move_cooldown);
  countDown(m_melee_cooldown);
  countDown(m_ranged_cooldown);
  countDown(m_invuln_timer);
  countDown(m_block_timer);
  countDown(m_block_cooldown);
}

void Hero::computeAim(int& dx, int& dy) const {
  // Compared in pixels: a space isn't square, and the aim must match what the eye sees.
  ot::Vector d = ot::viewToWorld(m_mouse) - getPosition();
  ot::Vector p = ot::spacesToPixels(d);
  dx = 0;
  dy = 0;
  if (std::fabs(p.getX()) >= std::fabs(p.getY())) {
    dx = p.getX() >= 0 ? 1 : -1;
  } else {
    dy = p.getY() >= 0 ? 1 : -1;
  }
}

void Hero::meleeAttack() {
  if (m_melee_cooldown >= 1) return;
  m_melee_cooldown = MELEE_COOLDOWN;
  int dx = 0;
  int dy = 0;
  computeAim(dx, dy);
  int x = m_gx + dx;
  int y = m_gy + dy;
  // A swing at a wall is spent for nothing; a closed door can be struck.
  Level* p_level = getLevel();
  if (p_level && p_level->tileAt(x, y) == TILE_WALL) return;
  new Slash(x, y, m_melee_damage, this);
}

void Hero::rangedAttack() {
  if (m_ranged_cooldown >= 1) return;
  m_ranged_cooldown = RANGED_COOLDOWN;
  int dx = 0;
  int dy = 0;
  computeAim(dx, dy);
  new Projectile(m_gx, m_gy, dx, dy, m_ranged_damage, this);
}

bool Hero::takeDamage(int damage) {
  if (shopOpen()) return false;
  if (m_invuln_timer > 0) return false;
  m_invuln_timer = INVULN_STEPS;
  ot::DisplayManager::getInstance().shake(6, 6, 4, false);
  ot::addParticles(ot::SPARKS, getPosition(), 1.0f, ot::RED);
  bool killed = GridEntity::takeDamage(damage);
  updateHud();
  return killed;
}

void Hero::onDeath() {
  ot::WorldManager::getInstance().markForDelete(this);
  new GameOver(m_score, m_kills);
  ot::addParticles(ot::SPARKS, getPosition(), 3.0f, ot::CYAN);
  ot::addParticles(ot::SPARKS, getPosition(), 3.0f, ot::RED);
}

bool Hero::absorbBlow() {
  // The block stops every blow while it lasts and gives no invulnerability.
  if (!isBlocking()) return false;
  ot::addParticles(ot::SPARKS, getPosition(), 1.0f, ot::YELLOW);
  return true;
}

void Hero::addKillReward(int amount) {
  m_score += amount;
  m_gold += amount;
  m_kills += 1;
  updateHud();
}

bool Hero::spendGold(int price) {
  if (m_gold < price) return false;
  m_gold -= price;
  updateHud();
  return true;
}

void Hero::addMaxHp(int amount) {
  m_max_hp += amount;
  m_hp += amount;
  updateHud();
}

void Hero::healFull() {
  m_hp = m_max_hp;
  updateHud();
}

void Hero::updateHud() {
  ot::WorldManager& world = ot::WorldManager::getInstance();
  ot::EventView hp("HP", m_hp, false);
  world.onEvent(&hp);
  ot::EventView gold("Gold", m_gold, false);
  world.onEvent(&gold);
  ot::EventView score("Score", m_score, false);
  world.onEvent(&score);
}

int Hero::draw() {
  // Blinks two steps off, two on, with its marks.
  if (m_invuln_timer > 0 && (m_invuln_timer / 2) % 2 == 0) return 0;
  int result = Object::draw();
  const ot::DisplayManager& display = ot::DisplayManager::getInstance();
  float x = getPosition().getX();
  float y = getPosition().getY();
  if (isBlocking()) {
    display.drawCh(ot::Vector(x - 2, y - 1), '[', ot::YELLOW);
    display.drawCh(ot::Vector(x - 2, y + 1), '[', ot::YELLOW);
    display.drawCh(ot::Vector(x + 2, y - 1), ']', ot::YELLOW);
    display.drawCh(ot::Vector(x + 2, y + 1), ']', ot::YELLOW);
  }
  int dx = 0;
  int dy = 0;
  computeAim(dx, dy);
  display.drawCh(Level::tileCenter(m_gx + dx, m_gy + dy), '+', ot::WHITE);
  return result;
}

Hero* findHero() {
  ot::ObjectList heroes = ot::WorldManager::getInstance().objectsOfType("Hero");
  return heroes.isEmpty() ? nullptr : dynamic_cast<Hero*>(heroes[0]);
}
