#include "tests/support/GameWorld.h"

#include <unistd.h>

#include <cstdlib>

#include "engine/core/EventKeyboard.h"
#include "engine/core/EventMouse.h"
#include "engine/core/EventStep.h"
#include "engine/core/GameManager.h"
#include "engine/presentation/InputManager.h"
#include "engine/presentation/ViewObject.h"
#include "engine/world/Geometry.h"
#include "engine/world/WorldManager.h"
#include "game/game.h"

namespace ot_test {

void GameWorld::SetUp() {
  HeadlessEngine::SetUp();
  g_enemy_level = 0;
  g_floor_visited[0] = true;
  g_floor_visited[1] = false;
  g_floor_stash[0].clear();
  g_floor_stash[1].clear();
  ot::WorldManager& world = ot::WorldManager::getInstance();
  world.setBoundary(mapBox());
  world.setView(ot::Box(ot::Vector(0, 0), 80, 24));
}

void GameWorld::TearDown() {
  HeadlessEngine::TearDown();
  g_floor_stash[0].clear();
  g_floor_stash[1].clear();
}

void GameWorld::makeLevel() { new Level; }

Hero* GameWorld::makeHero() {
  makeLevel();
  return new Hero;
}

GridEntity* GameWorld::creatureAt(int x, int y, int hp) {
  auto* p_unit = new GridEntity;
  p_unit->setMaxHp(hp);
  p_unit->heal(hp);
  p_unit->setGridPos(x, y);
  return p_unit;
}

void GameWorld::key(int key, int action) {
  ot::EventKeyboard event;
  event.setKey(key);
  event.setKeyboardAction(action);
  ot::InputManager::getInstance().onEvent(&event);
}

void GameWorld::mouse(int action, int button, ot::Vector world_pos) {
  ot::EventMouse event;
  event.setMouseAction(action);
  event.setMouseButton(button);
  event.setMousePosition(ot::worldToView(world_pos));
  ot::InputManager::getInstance().onEvent(&event);
}

void GameWorld::step(int n) {
  for (int i = 0; i < n; i++) {
    ot::EventStep event(ot::GameManager::getInstance().getStepCount());
    ot::GameManager::getInstance().onEvent(&event);
  }
}

int GameWorld::countOf(const std::string& type) {
  return ot::WorldManager::getInstance().objectsOfType(type).getCount();
}

int GameWorld::hudValue(const std::string& tag) {
  ot::ObjectList items = ot::WorldManager::getInstance().getAllObjects();
  for (int i = 0; i < items.getCount(); i++) {
    auto* p_item = dynamic_cast<ot::ViewObject*>(items[i]);
    if (p_item && p_item->getViewString() == tag) return p_item->getValue();
  }
  return -1;
}

void GameWorld::loadSprites() {
  char previous[4096];
  ASSERT_NE(nullptr, getcwd(previous, sizeof(previous)));
  ASSERT_EQ(0, chdir(std::getenv("OSTREL_SOURCE_DIR")));
  loadGameSprites();
  ASSERT_EQ(0, chdir(previous));
}

}  // namespace ot_test
