#include "game/Level.h"

#include <map>
#include <tuple>
#include <utility>
#include <vector>

#include "engine/core/Box.h"
#include "engine/world/WorldManager.h"
#include "tests/support/GameWorld.h"

namespace {

using Tiles = std::vector<std::pair<int, int>>;

class LevelTest : public ot_test::GameWorld {
 protected:
  void SetUp() override {
    GameWorld::SetUp();
    makeLevel();
    p_level = getLevel();
    ASSERT_NE(nullptr, p_level);
  }

  Tiles tilesOf(Tile tile) const {
    Tiles found;
    for (int y = 0; y < MAP_H; y++)
      for (int x = 0; x < MAP_W; x++)
        if (p_level->tileAt(x, y) == tile) found.emplace_back(x, y);
    return found;
  }

  Level* p_level = nullptr;
};

struct FloorFacts {
  int floor;
  std::map<int, int> spawns_by_type;
  Tiles shop, doors, stairs;
  int walls;
};

void PrintTo(const FloorFacts& facts, std::ostream* os) { *os << "floor index " << facts.floor; }

class LevelFloor : public LevelTest, public ::testing::WithParamInterface<FloorFacts> {};

TEST_P(LevelFloor, HoldsItsLandmarks) {
  const FloorFacts& facts = GetParam();
  p_level->setFloor(facts.floor);
  std::map<int, int> spawns;
  int previous = -1;
  for (const SpawnPoint& point : p_level->getSpawnPoints()) {
    spawns[point.type]++;
    EXPECT_EQ(TILE_FLOOR, p_level->tileAt(point.x, point.y));
    EXPECT_LT(previous, point.y * MAP_W + point.x);  // in reading order
    previous = point.y * MAP_W + point.x;
  }
  EXPECT_EQ(facts.spawns_by_type, spawns);
  EXPECT_EQ(facts.shop, tilesOf(TILE_SHOP));
  EXPECT_EQ(facts.doors, tilesOf(TILE_DOOR));
  EXPECT_EQ(facts.stairs, tilesOf(TILE_STAIRS));
  EXPECT_EQ(facts.stairs, (Tiles{{p_level->getStairsX(facts.floor), p_level->getStairsY(facts.floor)}}));
  EXPECT_EQ(facts.walls, static_cast<int>(tilesOf(TILE_WALL).size()));
  // Walled all round.
  for (int x = 0; x < MAP_W; x++)
    EXPECT_TRUE(p_level->tileAt(x, 0) == TILE_WALL && p_level->tileAt(x, MAP_H - 1) == TILE_WALL);
  for (int y = 0; y < MAP_H; y++)
    EXPECT_TRUE(p_level->tileAt(0, y) == TILE_WALL && p_level->tileAt(MAP_W - 1, y) == TILE_WALL);
}

INSTANTIATE_TEST_SUITE_P(
    Floors, LevelFloor,
    ::testing::Values(
        FloorFacts{0, {{0, 12}, {1, 8}, {2, 3}}, {{33, 6}}, {{35, 15}, {47, 22}}, {{44, 27}}, 450},
        FloorFacts{1, {{0, 11}, {1, 9}, {2, 3}}, {{21, 12}}, {{41, 10}, {47, 15}}, {{44, 27}}, 557}));

TEST_F(LevelTest, StartsWithDoorsClosed) {
  EXPECT_EQ(std::make_tuple(0, 3, 2, false, std::string("Level"), ot::SPECTRAL),
            std::make_tuple(p_level->getFloor(), p_level->getStartX(), p_level->getStartY(),
                            p_level->doorsOpen(), p_level->getType(), p_level->getSolidness()));
  EXPECT_EQ(mapBox(), p_level->getBox());  // never culled from the view
  std::vector<std::string> log = logMessages();
  EXPECT_TRUE(ot_test::logHas(log, "Level::Level(): 23 spawn points, start (3,2)."));
  EXPECT_TRUE(ot_test::logHas(log, "Level::Level(): floor 2 has 23 spawn points, stairs (44,27)."));
}

TEST_F(LevelTest, TileRulesAnswerForEveryKindOfTile) {
  for (auto [x, y] : {std::make_pair(-1, 0), {60, 0}, {5, 30}}) EXPECT_EQ(TILE_WALL, p_level->tileAt(x, y));
  EXPECT_FALSE(p_level->isWalkable(-1, 0));
  EXPECT_FALSE(p_level->isWalkable(0, 0));    // wall
  EXPECT_TRUE(p_level->isWalkable(3, 2));     // floor
  EXPECT_TRUE(p_level->isWalkable(33, 6));    // shop
  EXPECT_TRUE(p_level->isWalkable(44, 27));   // stairs
  EXPECT_FALSE(p_level->isWalkable(35, 15));  // closed door
  p_level->setDoorsOpen(true);
  EXPECT_TRUE(p_level->isWalkable(35, 15));
  p_level->setFloor(1);
  EXPECT_TRUE(p_level->isWalkable(41, 10));  // one key for both floors
}

TEST_F(LevelTest, SetFloorTakesOnlyTheTwoFloors) {
  for (auto [floor, now] : {std::make_pair(1, 1), {2, 1}, {-1, 1}, {0, 0}}) {
    p_level->setFloor(floor);
    EXPECT_EQ(now, p_level->getFloor()) << floor;
  }
}

TEST_F(LevelTest, TileCentreInvertsWorldToTile) {
  EXPECT_EQ(ot::Vector(17, 7), Level::tileCenter(3, 2));
  int x = 0, y = 0;
  for (ot::Vector pos : {ot::Vector(15, 6), ot::Vector(19.99f, 8.99f), ot::Vector(17, 7)}) {
    Level::worldToTile(pos, x, y);
    EXPECT_EQ(std::make_pair(3, 2), std::make_pair(x, y)) << pos.toString();
  }
  Level::worldToTile(ot::Vector(-0.5f, -0.1f), x, y);  // floor, not truncation
  EXPECT_EQ(std::make_pair(-1, -1), std::make_pair(x, y));
}

TEST(LevelLookup, GetLevelIsNullWithoutALevel) {
  // The engine isn't even started: the world is empty.
  EXPECT_EQ(nullptr, getLevel());
}

}  // namespace
