#include "game/GridEntity.h"

#include "engine/core/ObjectListIterator.h"
#include "engine/world/WorldManager.h"
#include "game/Level.h"

GridEntity::GridEntity() { setSolidness(ot::SOFT); }

bool GridEntity::takeDamage(int damage) {
  if (m_hp < 1) return false;
  m_hp -= damage;
  if (m_hp > 0) return false;
  m_hp = 0;
  onDeath();
  return true;
}

void GridEntity::onDeath() { ot::WorldManager::getInstance().markForDelete(this); }

bool GridEntity::canMoveTo(int x, int y) {
  Level* p_level = getLevel();
  if (p_level && !p_level->isWalkable(x, y)) return false;
  return unitAt(x, y, this) == nullptr;
}

bool GridEntity::tryMove(int dx, int dy) {
  int x = m_gx + dx;
  int y = m_gy + dy;
  if (!canMoveTo(x, y)) return false;
  setGridPos(x, y);
  return true;
}

void GridEntity::setGridPos(int x, int y) {
  m_gx = x;
  m_gy = y;
  ot::WorldManager::getInstance().moveObject(this, Level::tileCenter(x, y));
}

void GridEntity::heal(int amount) {
  m_hp += amount;
  if (m_hp > m_max_hp) m_hp = m_max_hp;
}

void GridEntity::setMaxHp(int max_hp) {
  m_max_hp = max_hp;
  if (m_hp > m_max_hp) m_hp = m_max_hp;
}

GridEntity* unitAt(int x, int y, const ot::Object* skip) {
  ot::ObjectList all = ot::WorldManager::getInstance().getAllObjects();
  for (ot::ObjectListIterator it(&all); !it.isDone(); it.next()) {
    if (it.currentObject() == skip) continue;
    auto* p_unit = dynamic_cast<GridEntity*>(it.currentObject());
    if (p_unit && p_unit->getGx() == x && p_unit->getGy() == y && p_unit->getHp() > 0) return p_unit;
  }
  return nullptr;
}
