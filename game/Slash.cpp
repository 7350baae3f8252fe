#include "game/Slash.h"

#include "engine/core/Event.h"
#include "engine/core/EventLabels.h"
#include "engine/effects/Particles.h"
#include "engine/world/WorldManager.h"
#include "game/GridEntity.h"
#include "game/Level.h"

Slash::Slash(int x, int y, int damage, GridEntity* p_owner) {
  setType("Slash");
  setSolidness(ot::SPECTRAL);
  setAltitude(4);
  setSprite("slash");
  registerInterest(ot::STEP_EVENT);
  setPosition(Level::tileCenter(x, y));
  // The one strike; a creature that walks in later is not hurt.
  if (GridEntity* p_target = unitAt(x, y, p_owner)) {
    p_target->takeDamage(damage);
    ot::addParticles(ot::SPARKS, getPosition(), 0.5f, ot::WHITE);
  }
}

int Slash::eventHandler(const ot::Event* p_e) {
  if (p_e->getType() != ot::STEP_EVENT) return 0;
  if (--m_lifetime <= 0) ot::WorldManager::getInstance().markForDelete(this);
  return 1;
}
