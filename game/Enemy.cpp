#include "game/Enemy.h"

#include <cstdlib>

#include "engine/core/Event.h"
#include "engine/core/EventLabels.h"
#include "engine/effects/Particles.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/world/WorldManager.h"
#include "game/GameTimer.h"
#include "game/Hero.h"

namespace {

struct Kind {
  const char* sprite;
  int max_hp;
  int damage;
  int reward;
  int move_period;  // steps between actions
  int sight;        // tiles
  ot::Color burst;
};

const Kind KINDS[] = {
    {"slime", 3, 1, 10, 16, 7, ot::GREEN},
    {"bat", 2, 1, 15, 7, 6, ot::MAGENTA},
    {"brute", 8, 3, 50, 22, 9, ot::RED},
};

const Kind& kindOf(int type) { return (type == 1 || type == 2) ? KINDS[type] : KINDS[0]; }

constexpr int BLOCKED_BLOW_STUN = 30;

int sign(int v) { return (v > 0) - (v < 0); }

}  // namespace

Enemy::Enemy(int type, int x, int y) : m_type(type) {
  setType("Enemy");
  setAltitude(2);
  registerInterest(ot::STEP_EVENT);
  const Kind& kind = kindOf(type);
  setSprite(kind.sprite);
  m_max_hp = kind.max_hp;
  m_damage = kind.damage;
  m_reward = kind.reward;
  m_move_period = kind.move_period;
  m_sight = kind.sight;
  m_hp = m_max_hp;
  // Enemies made together fall out of step: the first action comes after one to two periods.
  m_move_countdown = rand() % m_move_period + m_move_period;
  m_base_max_hp = m_max_hp;
  m_base_damage = m_damage;
  setLevel(getEnemyLevel());
  setGridPos(x, y);
}

void Enemy::setLevel(int level) {
  if (level <= m_level) return;
  m_level = level;
  // Half the base hit points per level, rounded up.
  int new_max = m_base_max_hp + (m_base_max_hp * 50 * level + 99) / 100;
  m_hp += new_max - m_max_hp;
  m_max_hp = new_max;
  m_damage = m_base_damage + level;
}

void Enemy::removeSilently() {
  m_hp = 0;
  ot::WorldManager::getInstance().markForDelete(this);
}

int Enemy::eventHandler(const ot::Event* p_e) {
  if (p_e->getType() != ot::STEP_EVENT) return 0;
  if (m_hp < 1) return 1;
  if (m_stun_timer > 0) {
    m_stun_timer--;
    return 1;
  }
  if (--m_move_countdown > 0) return 1;
  m_move_countdown = m_move_period;
  act();
  return 1;
}

void Enemy::act() {
  Hero* p_hero = findHero();
  if (!p_hero) {
    wander();
    return;
  }
  int d = std::abs(p_hero->getGx() - m_gx) + std::abs(p_hero->getGy() - m_gy);
  if (d == 1) {
    if (p_hero->absorbBlow()) {
      stun(BLOCKED_BLOW_STUN);
    } else {
      p_hero->takeDamage(m_damage);
    }
    return;
  }
  if (d > m_sight) {
    // Bats flit about; the others mostly wait.
    if (m_type == 1 || rand() % 3 == 0) wander();
    return;
  }
  if (!chase(p_hero->getGx(), p_hero->getGy())) wander();
}

bool Enemy::chase(int x, int y) {
  int ddx = x - m_gx;
  int ddy = y - m_gy;
  int sx = sign(ddx);
  int sy = sign(ddy);
  int first_x = sx, first_y = 0, second_x = 0, second_y = sy;
  if (std::abs(ddx) < std::abs(ddy)) {
    first_x = 0;
    first_y = sy;
    second_x = sx;
    second_y = 0;
  }
  if (first_x == 0 && first_y == 0) {
    if (second_x == 0 && second_y == 0) return false;
    return tryMove(second_x, second_y);
  }
  if (tryMove(first_x, first_y)) return true;
  if (second_x == 0 && second_y == 0) return false;
  return tryMove(second_x, second_y);
}

void Enemy::wander() {
  static const int STEPS[4][2] = {{1, 0}, {-1, 0}, {0, 1}, {0, -1}};
  int i = rand() % 4;
  tryMove(STEPS[i][0], STEPS[i][1]);
}

void Enemy::stun(int steps) {
  m_stun_timer = steps;
  ot::addParticles(ot::SPARKS, getPosition(), 0.5f, ot::YELLOW);
}

int Enemy::draw() {
  int result = Object::draw();
  if (m_stun_timer > 0) {
    const ot::DisplayManager& display = ot::DisplayManager::getInstance();
    float x = getPosition().getX();
    float row = getPosition().getY() - 1;
    // The stars swing in and out every 4 steps.
    float spread = (m_stun_timer / 4) % 2 == 0 ? 2.0f : 1.0f;
    display.drawCh(ot::Vector(x - spread, row), '*', ot::YELLOW);
    display.drawCh(ot::Vector(x + spread, row), '*', ot::YELLOW);
  }
  return result;
}

void Enemy::onDeath() {
  ot::addParticles(ot::SPARKS, getPosition(), 1.0f, kindOf(m_type).burst);
  if (Hero* p_hero = findHero()) p_hero->addKillReward(m_reward);
  ot::WorldManager::getInstance().markForDelete(this);
}
