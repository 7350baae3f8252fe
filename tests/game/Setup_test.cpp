#include "game/Setup.h"

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "engine/core/ObjectListIterator.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/presentation/Sprite.h"
#include "engine/presentation/ViewObject.h"
#include "engine/world/WorldManager.h"
#include "game/game.h"
#include "tests/support/GameWorld.h"

namespace {

const std::vector<std::string> SPRITES = {"hero",        "slime",      "bat",      "brute",     "slash",
                                          "arrow-right", "arrow-left", "arrow-up", "arrow-down"};

class SetupTest : public ot_test::GameWorld {
 protected:
  // Runs loadGameSprites in a fresh folder, holding sprites/ with these files when given.
  static void loadSpritesIn(const std::map<std::string, std::string>& files, bool with_folder) {
    char previous[4096];
    ASSERT_NE(nullptr, getcwd(previous, sizeof(previous)));
    std::string dir = "/tmp/ostrel-test-" + std::to_string(getpid()) + "-setup";
    std::system(("rm -rf " + dir).c_str());
    ASSERT_EQ(0, mkdir(dir.c_str(), 0700));
    if (with_folder) {
      ASSERT_EQ(0, mkdir((dir + "/sprites").c_str(), 0700));
    }
    for (const auto& [name, text] : files) std::ofstream(dir + "/sprites/" + name) << text;
    ASSERT_EQ(0, chdir(dir.c_str()));
    loadGameSprites();
    ASSERT_EQ(0, chdir(previous));
  }
};

TEST_F(SetupTest, TheFirstFrameHoldsTheWholeWorld) {
  g_enemy_level = 3;
  populateWorld();
  ot::WorldManager& world = ot::WorldManager::getInstance();
  EXPECT_EQ(mapBox(), world.getBoundary());
  EXPECT_EQ(ot::Box(ot::Vector(0, 0), 80, 24), world.getView());
  EXPECT_EQ(ot::Vector(0.25f, 0.25f), world.getViewSlack());
  Hero* p_hero = findHero();
  ASSERT_NE(nullptr, p_hero);
  EXPECT_EQ(3, p_hero->getGx());
  EXPECT_EQ(2, p_hero->getGy());
  EXPECT_EQ(0, getEnemyLevel());  // the timer's start value
  std::map<int, int> kinds;
  ot::ObjectList enemies = world.objectsOfType("Enemy");
  for (ot::ObjectListIterator it(&enemies); !it.isDone(); it.next()) {
    auto* p_enemy = dynamic_cast<Enemy*>(it.currentObject());
    kinds[p_enemy->getType()]++;
    EXPECT_EQ(3, p_enemy->getLevel());  // made before the timer reset the level
  }
  EXPECT_EQ((std::map<int, int>{{0, 12}, {1, 8}, {2, 3}}), kinds);
  for (const char* type : {"Level", "Spawner", "GameTimer", "Shop"}) EXPECT_EQ(1, countOf(type)) << type;
  ot::ObjectList items = world.objectsOfType("ViewObject");
  ASSERT_EQ(4, items.getCount());
  const int locations[] = {ot::TOP_LEFT, ot::TOP_CENTER, ot::TOP_RIGHT, ot::BOTTOM_CENTER};
  const char* tags[] = {"HP", "Gold", "Score", "Floor"};
  const int values[] = {10, 0, 0, 1};
  const ot::Color colors[] = {ot::RED, ot::YELLOW, ot::WHITE, ot::CYAN};
  for (int i = 0; i < 4; i++) {
    auto* p_item = dynamic_cast<ot::ViewObject*>(items[i]);
    EXPECT_EQ(locations[i], p_item->getLocation());
    EXPECT_EQ(tags[i], p_item->getViewString());
    EXPECT_EQ(values[i], p_item->getValue());
    EXPECT_EQ(colors[i], p_item->getColor());
  }
}

TEST_F(SetupTest, TheGamesSpritesFitATile) {
  loadSprites();
  for (const std::string& label : SPRITES) {
    ot::Sprite* p_sprite = ot::ResourceManager::getInstance().getSprite(label);
    ASSERT_NE(nullptr, p_sprite) << label;
    EXPECT_EQ('.', p_sprite->getTransparency()) << label;
    EXPECT_LE(p_sprite->getWidth(), TILE_W) << label;
    EXPECT_LE(p_sprite->getHeight(), TILE_H) << label;
  }
  // Creatures that move have more than one picture.
  for (const char* label : {"hero", "slime", "bat", "brute"})
    EXPECT_GT(ot::ResourceManager::getInstance().getSprite(label)->getFrameCount(), 1) << label;
}

TEST_F(SetupTest, EachMissingOrBrokenSpriteIsLogged) {
  std::string hero;
  std::ifstream file(std::string(std::getenv("OSTREL_SOURCE_DIR")) + "/sprites/hero.txt");
  std::getline(file, hero, '\0');
  loadSpritesIn({{"hero.txt", hero}, {"bat.txt", "<HEADER>\nframes 2\n"}}, true);
  std::vector<std::string> log = logMessages();
  for (const std::string& label : SPRITES) {
    std::string line = "game: failed to load sprite sprites/" + (label + ".txt");
    EXPECT_EQ(label == "hero" ? 0 : 1, ot_test::logCount(log, line)) << label;
  }
  EXPECT_NE(nullptr, ot::ResourceManager::getInstance().getSprite("hero"));
  EXPECT_EQ(nullptr, ot::ResourceManager::getInstance().getSprite("bat"));
}

TEST_F(SetupTest, WithoutASpritesFolderTheWorldIsStillBuilt) {
  loadSpritesIn({}, false);
  std::vector<std::string> log = logMessages();
  for (const std::string& label : SPRITES)
    EXPECT_EQ(1, ot_test::logCount(log, "game: failed to load sprite sprites/" + label + ".txt")) << label;
  populateWorld();
  EXPECT_NE(nullptr, findHero());
  EXPECT_EQ(23, countOf("Enemy"));
}

}  // namespace
