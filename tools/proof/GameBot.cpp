#include "tools/proof/GameBot.h"

#include <unistd.h>

#include <SFML/Graphics/Image.hpp>
#include <algorithm>
#include <chrono>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <queue>

#include "game/Level.h"
#include "tests/support/WindowProcess.h"

// Last: Xlib's macros (None, Status, ...) would clash with the headers above.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace ot_proof {

using ot_test::xdotool;

namespace {

constexpr int COLS = 80;  // the game's cells across and down its window
constexpr int ROWS = 24;
constexpr int TOP = 3;  // rows 0 to 2 and 21 to 23 hold the HUD: creatures are looked for between
constexpr int BOTTOM = 20;
constexpr int MISMATCHES_ALLOWED = 80;  // of the 1 920 cells compared

enum Hue { NONE, BLUE, CYAN, GREEN, MAGENTA, RED, YELLOW, WHITE, HUES };

Hue hueOf(unsigned long pixel) {
  int r = (pixel >> 16) & 0xff, g = (pixel >> 8) & 0xff, b = pixel & 0xff;
  bool hr = r > 190, hg = g > 190, hb = b > 190, lr = r < 70, lg = g < 70, lb = b < 70;
  if (hr && hg && hb) return WHITE;
  if (lr && lg && hb) return BLUE;
  if (lr && hg && hb) return CYAN;
  if (lr && hg && lb) return GREEN;
  if (hr && lg && hb) return MAGENTA;
  if (hr && lg && lb) return RED;
  if (hr && hg && lb) return YELLOW;
  return NONE;
}

double secondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

const char* keyFor(int dx, int dy) { return dx > 0 ? "d" : dx < 0 ? "a" : dy > 0 ? "s" : "w"; }

}  // namespace

// The window's cells, each named by the hue most of its sampled pixels have.
struct GameBot::Capture {
  bool ok = false;
  int width = 0, height = 0;
  Hue cell[ROWS][COLS] = {};
  std::vector<unsigned long> pixels;  // row by row, when asked for
};

GameBot::GameBot(unsigned long window, Level& level) : m_window(window), m_level(level) {
  // A window gone (the game ended) is an answer, not a reason for Xlib to end the test.
  XSetErrorHandler([](::Display*, XErrorEvent*) { return 0; });
}

GameBot::Capture GameBot::capture(bool keep_pixels) {
  Capture shot;
  ::Display* p_x = XOpenDisplay(nullptr);
  if (!p_x) return shot;
  XWindowAttributes attributes;
  XImage* p_image = nullptr;
  if (XGetWindowAttributes(p_x, m_window, &attributes))
    p_image = XGetImage(p_x, m_window, 0, 0, attributes.width, attributes.height, AllPlanes, ZPixmap);
  if (p_image && p_image->bits_per_pixel == 32) {
    shot.ok = true;
    shot.width = attributes.width;
    shot.height = attributes.height;
    auto pixel = [&](int x, int y) {
      return static_cast<unsigned long>(
          *reinterpret_cast<const uint32_t*>(p_image->data + y * p_image->bytes_per_line + x * 4));
    };
    // A cell's background stands a tenth of a cell left and a fifth down of its corner;
    // its middle is sampled, clear of the glyphs that spill over from the left.
    double w = shot.width / static_cast<double>(COLS), h = shot.height / static_cast<double>(ROWS);
    for (int row = 0; row < ROWS; row++) {
      for (int col = 0; col < COLS; col++) {
        int count[HUES] = {};
        int y_end = std::min(static_cast<int>((row + 1.05) * h), shot.height);
        for (int y = static_cast<int>((row + 0.35) * h); y < y_end; y++)
          for (int x = static_cast<int>((col + 0.1) * w); x < static_cast<int>((col + 0.7) * w); x++)
            count[hueOf(pixel(x, y))]++;
        Hue best = NONE;
        int best_count = 3;  // a few stray pixels don't make a cell
        for (int hue = BLUE; hue < HUES; hue++) {
          if (count[hue] > best_count) {
            best = static_cast<Hue>(hue);
            best_count = count[hue];
          }
        }
        shot.cell[row][col] = best;
      }
    }
    if (keep_pixels) {
      shot.pixels.reserve(static_cast<size_t>(shot.width) * shot.height);
      for (int y = 0; y < shot.height; y++)
        for (int x = 0; x < shot.width; x++) shot.pixels.push_back(pixel(x, y));
    }
  }
  if (p_image) XDestroyImage(p_image);
  XCloseDisplay(p_x);
  return shot;
}

GameBot::Sight GameBot::look() {
  Sight sight;
  Capture shot = capture();
  sight.window_gone = !shot.ok;
  if (!shot.ok) return sight;
  m_window_width = shot.width;
  m_window_height = shot.height;
  auto rowCount = [&](int row, Hue hue) {
    int n = 0;
    for (int col = 0; col < COLS; col++) n += shot.cell[row][col] == hue;
    return n;
  };
  // The shop's rules of '=' stand 7 rows above and 6 below the middle; the end screen's '#' 3 each way.
  sight.shop_open = rowCount(ROWS / 2 - 7, YELLOW) >= 40 && rowCount(ROWS / 2 + 6, YELLOW) >= 40;
  sight.game_over = rowCount(ROWS / 2 - 3, RED) >= 20 && rowCount(ROWS / 2 + 3, RED) >= 20;

  // Where the view stands: the offset and floor whose walls best match the blue cells, nearest
  // the last. The view moves little between looks, so near the last is searched first.
  const int last_x = m_view_x, last_y = m_view_y, last_floor = m_floor;
  long best_score = LONG_MAX;
  auto search = [&](int floor, int x0, int x1, int y0, int y1) {
    m_level.setFloor(floor);
    for (int vy = std::max(0, y0); vy <= std::min(MAP_H * TILE_H - ROWS, y1); vy++) {
      for (int vx = std::max(0, x0); vx <= std::min(MAP_W * TILE_W - COLS, x1); vx++) {
        long score = std::abs(vx - last_x) + std::abs(vy - last_y) + (floor != last_floor) * 10;
        // Only walls (blue) and bare floor (black) count: a cell of another hue is a
        // creature, the HUD or text drawn over the map, and says nothing of what lies below.
        for (int row = 0; row < ROWS && score < best_score; row++) {
          for (int col = 0; col < COLS; col++) {
            Hue hue = shot.cell[row][col];
            if ((hue == BLUE || hue == NONE) &&
                (hue == BLUE) != (m_level.tileAt((vx + col) / TILE_W, (vy + row) / TILE_H) == TILE_WALL))
              score += 1000;
          }
        }
        if (score < best_score) {
          best_score = score;
          sight.floor = floor;
          m_view_x = vx;
          m_view_y = vy;
        }
      }
    }
  };
  search(last_floor, last_x - 12, last_x + 12, last_y - 8, last_y + 8);
  // Walls hidden by creatures or text drawn over them make a few cells differ. Many more
  // mean a shaken frame (characters move, their backgrounds don't) or a jump to the other
  // floor: a shake passes within a few frames, so only a lasting mismatch is a jump.
  if (best_score > MISMATCHES_ALLOWED * 1000 && ++m_lost_looks < 15) {
    m_view_x = last_x;
    m_view_y = last_y;
    return sight;  // the hero unseen, as while it blinks
  }
  if (best_score > MISMATCHES_ALLOWED * 1000) {
    for (int floor = 0; floor < NUM_FLOORS; floor++) search(floor, 0, INT_MAX, 0, INT_MAX);
  }
  m_lost_looks = 0;
  rememberFloor(sight.floor);

  int left = COLS, right = -1, top = ROWS, bottom = -1;
  std::vector<std::pair<int, int>> others;
  for (int row = TOP; row <= BOTTOM; row++) {
    for (int col = 0; col < COLS; col++) {
      Hue hue = shot.cell[row][col];
      if (hue == CYAN) {
        left = std::min(left, col), right = std::max(right, col);
        top = std::min(top, row), bottom = std::max(bottom, row);
      }
      std::pair<int, int> tile((m_view_x + col) / TILE_W, (m_view_y + row) / TILE_H);
      if ((hue == GREEN || hue == MAGENTA || hue == RED) &&
          std::find(others.begin(), others.end(), tile) == others.end())
        others.push_back(tile);
    }
  }
  if (right >= 0 && right - left <= TILE_W && bottom - top <= TILE_H) {
    sight.hero_seen = true;
    sight.hero_x = (m_view_x + (left + right) / 2) / TILE_W;
    sight.hero_y = (m_view_y + (top + bottom) / 2) / TILE_H;
  }
  sight.creatures = others;
  m_last = sight;
  return sight;
}

void GameBot::rememberFloor(int floor) {
  m_floor = floor;
  m_level.setFloor(floor);
}

std::pair<int, int> GameBot::firstStep(int floor, int from_x, int from_y, int to_x, int to_y) {
  m_level.setFloor(floor);
  std::vector<int> came(MAP_W * MAP_H, -1);
  std::queue<int> open;
  int goal = to_y * MAP_W + to_x;
  came[goal] = goal;  // searched from the goal back, so the answer is the first step
  open.push(goal);
  const int steps[4][2] = {{1, 0}, {-1, 0}, {0, 1}, {0, -1}};
  while (!open.empty()) {
    int at = open.front();
    open.pop();
    int x = at % MAP_W, y = at / MAP_W;
    if (x == from_x && y == from_y) {
      int next = came[at];
      return {next % MAP_W - x, next / MAP_W - y};
    }
    for (const auto& s : steps) {
      int nx = x + s[0], ny = y + s[1];
      if (!m_level.isWalkable(nx, ny) || came[ny * MAP_W + nx] != -1) continue;
      came[ny * MAP_W + nx] = at;
      open.push(ny * MAP_W + nx);
    }
  }
  return {0, 0};
}

bool GameBot::step(const Sight& from, int dx, int dy) {
  const char* key = keyFor(dx, dy);
  xdotool(std::string("keydown ") + key);
  auto start = std::chrono::steady_clock::now();
  bool moved = false;
  while (!moved && secondsSince(start) < 1.5) {
    Sight now = look();
    moved = now.hero_seen && (now.hero_x != from.hero_x || now.hero_y != from.hero_y);
    if (!moved) usleep(20 * 1000);
  }
  xdotool(std::string("keyup ") + key);
  return moved;
}

bool GameBot::walkTo(int x, int y, double seconds, bool strike) {
  auto start = std::chrono::steady_clock::now();
  auto waiting_since = start;  // when the hero last stood waiting for a creature
  bool waiting = false;
  while (secondsSince(start) < seconds) {
    Sight sight = look();
    if (sight.window_gone || sight.game_over) return false;
    if (!sight.hero_seen) {
      usleep(50 * 1000);  // blinking after a blow, or a shaken frame
      continue;
    }
    if (sight.hero_x == x && sight.hero_y == y) return true;
    if (strike) {
      Threat threat = fight(sight);
      if (threat == Threat::FOUGHT) continue;
      // A creature close by is let come (and met by a blow) rather than walked past, but
      // not for ever: one that can't reach the hero mustn't hold it.
      if (threat == Threat::NEAR && (!waiting || secondsSince(waiting_since) < 2)) {
        if (!waiting) waiting_since = std::chrono::steady_clock::now();
        waiting = true;
        usleep(50 * 1000);
        continue;
      }
    }
    waiting = false;
    auto [dx, dy] = firstStep(sight.floor, sight.hero_x, sight.hero_y, x, y);
    if (dx == 0 && dy == 0) return false;
    if (!step(sight, dx, dy) && strike) attack(1, dx, dy);  // something stands in the way
  }
  return false;
}

GameBot::Threat GameBot::fight(const Sight& sight) {
  Threat threat = Threat::NONE;
  for (auto [cx, cy] : sight.creatures) {
    int dx = cx - sight.hero_x, dy = cy - sight.hero_y;
    int away = std::abs(dx) + std::abs(dy);
    if (away == 1) {
      // A blocked blow stuns its striker; the block is simply refused while it rests.
      press("shift");
      attack(1, dx, dy);
      return Threat::FOUGHT;
    }
    if ((dx == 0) != (dy == 0) && away <= 6) {
      attack(3, (dx > 0) - (dx < 0), (dy > 0) - (dy < 0));  // an arrow down the line
      threat = Threat::NEAR;
    }
    if (away <= 3) threat = Threat::NEAR;
  }
  return threat;
}

bool GameBot::approachNearestCreature() {
  Sight sight = look();
  if (!sight.hero_seen || sight.creatures.empty()) return false;
  std::pair<int, int> nearest = sight.creatures[0];
  auto away = [&](std::pair<int, int> t) {
    return std::abs(t.first - sight.hero_x) + std::abs(t.second - sight.hero_y);
  };
  for (auto tile : sight.creatures)
    if (away(tile) < away(nearest)) nearest = tile;
  if (away(nearest) <= 1) return true;  // close enough to be struck
  auto [dx, dy] = firstStep(sight.floor, sight.hero_x, sight.hero_y, nearest.first, nearest.second);
  if (dx == 0 && dy == 0) return false;
  step(sight, dx, dy);
  return true;
}

void GameBot::attack(int button, int dx, int dy) {
  if (!m_last.hero_seen) return;
  double w = m_window_width / static_cast<double>(COLS), h = m_window_height / static_cast<double>(ROWS);
  // The middle of the target tile, in the window's pixels, as of the last look.
  int px = static_cast<int>(((m_last.hero_x + dx) * TILE_W + 2 - m_view_x + 0.4) * w);
  int py = static_cast<int>(((m_last.hero_y + dy) * TILE_H + 1 - m_view_y + 0.7) * h);
  xdotool("mousemove --window " + std::to_string(m_window) + " " + std::to_string(px) + " " +
          std::to_string(py) + " click " + std::to_string(button));
}

void GameBot::press(const std::string& key) { xdotool("key " + key); }

bool GameBot::saveScreenshot(const std::string& path) {
  Capture shot = capture(true);
  if (!shot.ok) return false;
  sf::Image image;
  image.create(static_cast<unsigned>(shot.width), static_cast<unsigned>(shot.height));
  for (int y = 0; y < shot.height; y++) {
    for (int x = 0; x < shot.width; x++) {
      unsigned long p = shot.pixels[static_cast<size_t>(y) * shot.width + x];
      image.setPixel(static_cast<unsigned>(x), static_cast<unsigned>(y),
                     sf::Color((p >> 16) & 0xff, (p >> 8) & 0xff, p & 0xff));
    }
  }
  return image.saveToFile(path);
}

}  // namespace ot_proof
