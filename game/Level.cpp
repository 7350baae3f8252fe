#include "game/Level.h"

#include <cmath>
#include <string>

#include "engine/core/LogManager.h"
#include "engine/core/ObjectListIterator.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/world/WorldManager.h"

namespace {

// Floor index 0, shown to the player as floor 1.
const char* const FLOOR_1[MAP_H] = {
    "############################################################",
    "#         #                  #            #                #",
    "#  P      #   e              #   b        #     b     b    #",
    "#         #                  #            #                #",
    "#         #        e         ####  ####   #          e     #",
    "#####  ####                  #        #   #####  ###########",
    "#         #                  #   S    #   #                #",
    "#   e     ######  ############        #   #                #",
    "#               #            #        #####       b        #",
    "#               #            #        #                    #",
    "#######  ########            ######  #######################",
    "#               #                     #        #           #",
    "#               #                  ####        #           #",
    "#     b         ######  ############     e     #     B     #",
    "#               #                  #  #        #           #",
    "#               #                  D  #        #     e     #",
    "#        e      #                  #  #        #           #",
    "#########  ######     ##########   #  #   b    ####  #######",
    "#               #     #        #   #  #        #           #",
    "#               #     #   e    #   #  ##########           #",
    "#               #     #        #   #           #     B     #",
    "#    e          #     #    e   #   #           #           #",
    "#               #     #        #   #           D           #",
    "#    b          #     ##   #####   ############            #",
    "#               #                  #           #           #",
    "#               ##########  ########           #     B     #",
    "#     e                                        #           #",
    "#                     b                     ^  #           #",
    "#            e                                 #           #",
    "############################################################",
};

// Floor index 1, shown as floor 2: no start, stairs on the same tile.
const char* const FLOOR_2[MAP_H] = {
    "############################################################",
    "#              ##                  ###                     #",
    "#              ##             b    ###                  e  #",
    "#   e                 e            ###       B             #",
    "#                                  ###         ###         #",
    "#              ##                  ###         ###         #",
    "#         b    ##                  ###         ###         #",
    "#              ######  ###############               B     #",
    "#              ######  ###############  b                  #",
    "#######  ############  ###############                     #",
    "#######  #######            #############D##################",
    "#            ###            ##                ##############",
    "#        b   ###     S      ##                ##           #",
    "#            ###                 e            ##        b  #",
    "#   e                       ##       ##       ##           #",
    "#            ###            ##       ##        D     B     #",
    "#            ###            ##            b   ##           #",
    "#            #################       e        ##           #",
    "#####  #######################                ##  e        #",
    "#####  #################################  ######           #",
    "#                      #################  ##################",
    "#              b       ##         ######  ##################",
    "#   e     b            ##         ##                       #",
    "#                      ##    e    ##                       #",
    "#    ##       ##       ##         ##                b      #",
    "#    ##       ##       ##                                  #",
    "#                                                          #",
    "#                 e               ##        v            e #",
    "#                      ##         ##                       #",
    "############################################################",
};

}  // namespace

Level::Level() {
  setType("Level");
  setSolidness(ot::SPECTRAL);
  setAltitude(0);
  setPosition(ot::Vector(0, 0));
  // Covers the whole world, so the view's culling never drops the map.
  setBox(mapBox());
  loadFloor(0, FLOOR_1);
  loadFloor(1, FLOOR_2);
  ot::LogManager& log = ot::LogManager::getInstance();
  log.writeLog("Level::Level(): %d spawn points, start (%d,%d).", static_cast<int>(m_spawns[0].size()),
               m_start_x, m_start_y);
  log.writeLog("Level::Level(): floor 2 has %d spawn points, stairs (%d,%d).",
               static_cast<int>(m_spawns[1].size()), m_stairs_x[1], m_stairs_y[1]);
}

void Level::loadFloor(int floor, const char* const rows[MAP_H]) {
  // A map without stairs would leave them on the start tile.
  m_stairs_x[floor] = m_start_x;
  m_stairs_y[floor] = m_start_y;
  m_spawns[floor].clear();
  for (int y = 0; y < MAP_H; y++) {
    bool ended = false;  // a row shorter than the map reads as floor past its end
    for (int x = 0; x < MAP_W; x++) {
      char ch = ended ? ' ' : rows[y][x];
      if (ch == '\0') {
        ended = true;
        ch = ' ';
      }
      Tile tile = TILE_FLOOR;
      switch (ch) {
        case '#': tile = TILE_WALL; break;
        case 'e': m_spawns[floor].push_back({x, y, 0}); break;
        case 'b': m_spawns[floor].push_back({x, y, 1}); break;
        case 'B': m_spawns[floor].push_back({x, y, 2}); break;
        case 'P':
          if (floor == 0) {
            m_start_x = x;
            m_start_y = y;
          }
          break;
        case 'S': tile = TILE_SHOP; break;
        case 'D': tile = TILE_DOOR; break;
        case '^':
        case 'v':
          tile = TILE_STAIRS;
          m_stairs_x[floor] = x;
          m_stairs_y[floor] = y;
          break;
        default: break;
      }
      m_tiles[floor][y][x] = tile;
    }
  }
}

bool Level::inBounds(int x, int y) const { return x >= 0 && x < MAP_W && y >= 0 && y < MAP_H; }

Tile Level::tileAt(int x, int y) const { return inBounds(x, y) ? m_tiles[m_floor][y][x] : TILE_WALL; }

bool Level::isWalkable(int x, int y) const {
  switch (tileAt(x, y)) {
    case TILE_WALL: return false;
    case TILE_DOOR: return m_doors_open;
    default: return true;
  }
}

ot::Vector Level::tileCenter(int x, int y) {
  return ot::Vector(static_cast<float>(x * TILE_W + 2), static_cast<float>(y * TILE_H + 1));
}

void Level::worldToTile(ot::Vector pos, int& x, int& y) {
  x = static_cast<int>(std::floor(pos.getX() / TILE_W));
  y = static_cast<int>(std::floor(pos.getY() / TILE_H));
}

void Level::setFloor(int floor) {
  if (floor == 0 || floor == 1) m_floor = floor;
}

int Level::draw() {
  ot::Box view = ot::WorldManager::getInstance().getView();
  int x0 = 0;
  int y0 = 0;
  int x1 = 0;
  int y1 = 0;
  worldToTile(view.getCorner(), x0, y0);
  worldToTile(view.getCorner() + ot::Vector(view.getHorizontal(), view.getVertical()), x1, y1);
  for (int y = y0 - 1; y <= y1 + 1; y++) {
    for (int x = x0 - 1; x <= x1 + 1; x++) {
      if (inBounds(x, y)) drawTile(x, y);
    }
  }
  return 0;
}

void Level::drawTile(int x, int y) const {
  const char* lines[3];
  ot::Color color = ot::WHITE;
  switch (tileAt(x, y)) {
    case TILE_FLOOR: return;
    case TILE_WALL:
      lines[0] = lines[1] = lines[2] = "#####";
      color = ot::BLUE;
      break;
    case TILE_DOOR:
      lines[0] = lines[1] = lines[2] = m_doors_open ? "....." : "+++++";
      color = m_doors_open ? ot::GREEN : ot::YELLOW;
      break;
    case TILE_SHOP:
      lines[0] = lines[2] = " $$$ ";
      lines[1] = "SHOP!";
      color = ot::YELLOW;
      break;
    case TILE_STAIRS:
      // The text follows the floor the hero is on, not the map's character.
      lines[0] = lines[2] = "=====";
      lines[1] = m_floor == 0 ? " UP^ " : " DNv ";
      color = ot::WHITE;
      break;
  }
  const ot::DisplayManager& display = ot::DisplayManager::getInstance();
  float cx = tileCenter(x, y).getX();
  for (int i = 0; i < 3; i++) {
    display.drawString(ot::Vector(cx, static_cast<float>(y * TILE_H + i)), lines[i], ot::CENTER_JUSTIFIED,
                       color);
  }
}

ot::Box mapBox() { return ot::Box(ot::Vector(0, 0), MAP_W * TILE_W, MAP_H * TILE_H); }

Level* getLevel() {
  ot::ObjectList levels = ot::WorldManager::getInstance().objectsOfType("Level");
  if (levels.isEmpty()) return nullptr;
  return dynamic_cast<Level*>(levels[0]);
}
