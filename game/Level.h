#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/Box.h"
#include "engine/core/Vector.h"
#include "engine/world/Object.h"

// Map size in tiles, floors, and tile size in spaces.
constexpr int MAP_W = 60;
constexpr int MAP_H = 30;
constexpr int NUM_FLOORS = 2;
constexpr int TILE_W = 5;
constexpr int TILE_H = 3;

enum Tile : std::int32_t {
  TILE_FLOOR = 0,
  TILE_WALL,    // also what lies outside the map
  TILE_DOOR,    // walkable only once the key is bought
  TILE_SHOP,    // the hero opens the shop here
  TILE_STAIRS,  // to the other floor
};

// Where an enemy of a type appears when a floor is first populated.
struct SpawnPoint {
  int x;
  int y;
  int type;  // 0 slime, 1 bat, 2 brute
};

// The dungeon's tile map: both floors, compiled in, answering every question
// about tiles and drawing what the view shows of the current floor. Walls
// exist only here; the engine's collisions play no part in them. One Level
// lives for the whole run, owned by the world; find it with getLevel().
class Level : public ot::Object {
 public:
  Level();
  ~Level() override = default;

  // The tiles in view, plus a margin of one; always 0.
  int draw() override;

  bool inBounds(int x, int y) const;
  // TILE_WALL outside the map.
  Tile tileAt(int x, int y) const;
  bool isWalkable(int x, int y) const;
  // The middle cell of a tile, in spaces.
  static ot::Vector tileCenter(int x, int y);
  static void worldToTile(ot::Vector pos, int& x, int& y);

  int getFloor() const { return m_floor; }
  // Anything but 0 or 1 is ignored.
  void setFloor(int floor);
  // The spawn points of the current floor, in map reading order.
  const std::vector<SpawnPoint>& getSpawnPoints() const { return m_spawns[m_floor]; }
  int getStairsX(int floor) const { return m_stairs_x[floor]; }
  int getStairsY(int floor) const { return m_stairs_y[floor]; }
  int getStartX() const { return m_start_x; }
  int getStartY() const { return m_start_y; }
  bool doorsOpen() const { return m_doors_open; }
  void setDoorsOpen(bool open) { m_doors_open = open; }

 private:
  void loadFloor(int floor, const char* const rows[MAP_H]);
  void drawTile(int x, int y) const;

  Tile m_tiles[NUM_FLOORS][MAP_H][MAP_W];
  std::vector<SpawnPoint> m_spawns[NUM_FLOORS];
  int m_stairs_x[NUM_FLOORS];
  int m_stairs_y[NUM_FLOORS];
  int m_floor = 0;
  int m_start_x = 1;
  int m_start_y = 1;
  bool m_doors_open = false;  // one flag for every door of both floors
};

// The whole map in spaces, at (0,0): the world's boundary, and the box of the
// objects that must be drawn whatever the view shows.
ot::Box mapBox();

// The world's Level, or null when there is none.
Level* getLevel();
