#include "game/Projectile.h"

#include "engine/core/Event.h"
#include "engine/core/EventLabels.h"
#include "engine/effects/Particles.h"
#include "engine/world/WorldManager.h"
#include "game/GridEntity.h"
#include "game/Level.h"

Projectile::Projectile(int x, int y, int dx, int dy, int damage, GridEntity* p_owner)
    : m_gx(x), m_gy(y), m_dx(dx), m_dy(dy), m_damage(damage), m_owner(p_owner) {
  setType("Projectile");
  setSolidness(ot::SPECTRAL);
  setAltitude(1);
  registerInterest(ot::STEP_EVENT);
  if (dx >= 1) {
    setSprite("arrow-right");
  } else if (dx < 0) {
    setSprite("arrow-left");
  } else if (dy >= 0) {
    setSprite("arrow-down");
  } else {
    setSprite("arrow-up");
  }
  setPosition(Level::tileCenter(x, y));
}

int Projectile::eventHandler(const ot::Event* p_e) {
  if (p_e->getType() != ot::STEP_EVENT) return 0;
  if (--m_move_countdown > 0) return 1;
  m_move_countdown = 2;
  advance();
  return 1;
}

void Projectile::advance() {
  ot::WorldManager& world = ot::WorldManager::getInstance();
  int nx = m_gx + m_dx;
  int ny = m_gy + m_dy;
  Level* p_level = getLevel();
  if (p_level && !p_level->isWalkable(nx, ny)) {
    ot::addParticles(ot::SPARKS, getPosition(), 0.5f, ot::YELLOW);
    world.markForDelete(this);
    return;
  }
  m_gx = nx;
  m_gy = ny;
  world.moveObject(this, Level::tileCenter(nx, ny));
  if (GridEntity* p_target = unitAt(nx, ny, m_owner)) {
    p_target->takeDamage(m_damage);
    ot::addParticles(ot::SPARKS, getPosition(), 0.5f, ot::YELLOW);
    world.markForDelete(this);
    return;
  }
  if (--m_range <= 0) world.markForDelete(this);
}
