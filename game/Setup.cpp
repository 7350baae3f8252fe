#include "game/Setup.h"

#include "engine/core/LogManager.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/presentation/Sprite.h"
#include "engine/presentation/ViewObject.h"
#include "engine/world/WorldManager.h"
#include "game/GameTimer.h"
#include "game/Hero.h"
#include "game/Level.h"
#include "game/Spawner.h"

void loadGameSprites() {
  loadGameSprite("hero.txt", "hero");
  loadGameSprite("slime.txt", "slime");
  loadGameSprite("bat.txt", "bat");
  loadGameSprite("brute.txt", "brute");
  loadGameSprite("slash.txt", "slash");
  loadGameSprite("arrow-right.txt", "arrow-right");
  loadGameSprite("arrow-left.txt", "arrow-left");
  loadGameSprite("arrow-up.txt", "arrow-up");
  loadGameSprite("arrow-down.txt", "arrow-down");
}

void loadGameSprite(const std::string& file, const std::string& label) {
  ot::ResourceManager& resources = ot::ResourceManager::getInstance();
  std::string path = "sprites/" + file;
  if (resources.loadSprite(path, label) != 0) {
    ot::LogManager::getInstance().writeLog("game: failed to load sprite %s", path.c_str());
    return;
  }
  if (ot::Sprite* p_sprite = resources.getSprite(label)) p_sprite->setTransparency('.');
}

void populateWorld() {
  ot::WorldManager& world = ot::WorldManager::getInstance();
  const ot::DisplayManager& display = ot::DisplayManager::getInstance();
  world.setBoundary(mapBox());
  world.setView(ot::Box(ot::Vector(0, 0), static_cast<float>(display.getHorizontalChars()),
                        static_cast<float>(display.getVerticalChars())));
  world.setViewSlack(ot::Vector(0.25f, 0.25f));
  // The world owns all of these; each is found again by its type.
  new Level;
  new Hero;  // its first HUD values reach nobody yet: the HUD starts with the same
  (new Spawner)->spawnInitial();
  createHud();
  // After the first enemies, which took the level while it still had its start value.
  new GameTimer;
}

namespace {

void addHudItem(ot::Location location, const std::string& view_string, int value, ot::Color color) {
  auto* p_item = new ot::ViewObject;
  p_item->setLocation(location);
  p_item->setViewString(view_string);
  p_item->setValue(value);
  p_item->setColor(color);
}

}  // namespace

void createHud() {
  addHudItem(ot::TOP_LEFT, "HP", 10, ot::RED);
  addHudItem(ot::TOP_CENTER, "Gold", 0, ot::YELLOW);
  addHudItem(ot::TOP_RIGHT, "Score", 0, ot::WHITE);
  addHudItem(ot::BOTTOM_CENTER, "Floor", 1, ot::CYAN);
}
