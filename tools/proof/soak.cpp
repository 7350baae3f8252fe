// A soak run of the dungeon game: the real game loop, headless and without the
// frame's sleep, for a number of frames, played by a seeded bot that sends
// keyboard and mouse events through the InputManager as the window would. The
// bot mostly presses whatever it likes, and now and then sets itself a goal
// (a fight, the shop, the stairs) that it walks to by the map's shortest way,
// still by keys alone. When a run ends, by the hero's death or a Q, the next
// starts afresh in the same process, as a new process would start it.
//
// It reports the frames, the runs and what happened in them, the objects
// alive at the end and the resident memory over time. The same frames and
// seed play the same game: a failure replays.
//
//   ostrel-soak [frames] [seed] [allowed growth in MB]     (from the repository root)
//
// Exit status 1 when resident memory grew past the allowance after the first
// minute of play (judged on runs of five minutes or more, and not under
// AddressSanitizer), 2 on bad arguments.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <queue>
#include <random>
#include <string>
#include <vector>

#include "engine/core/Clock.h"
#include "engine/core/Config.h"
#include "engine/core/EventKeyboard.h"
#include "engine/core/EventMouse.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/presentation/InputManager.h"
#include "engine/world/Geometry.h"
#include "engine/world/WorldManager.h"
#include "game/game.h"

namespace {

constexpr long FRAMES_A_MINUTE = 1800;  // at the default 33 ms a frame

// Kilobytes of a line of /proc/self/status ("VmRSS", "VmHWM"), or -1.
long statusKb(const std::string& name) {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.compare(0, name.size() + 1, name + ":") == 0) return std::atol(line.c_str() + name.size() + 1);
  }
  return -1;
}

double mb(long kb) { return static_cast<double>(kb) / 1024.0; }

int objectsAlive() { return ot::WorldManager::getInstance().getAllObjects(true).getCount(); }

long g_events = 0;  // keyboard and mouse events sent

void key(int key, int action) {
  g_events++;
  ot::EventKeyboard event;
  event.setKey(key);
  event.setKeyboardAction(action);
  ot::InputManager::getInstance().onEvent(&event);
}

// A mouse event at a point of the view, in spaces.
void mouse(int action, int button, ot::Vector view_pos) {
  g_events++;
  ot::EventMouse event;
  event.setMouseAction(action);
  event.setMouseButton(button);
  event.setMousePosition(view_pos);
  ot::InputManager::getInstance().onEvent(&event);
}

void clickTile(int button, int x, int y) {
  ot::Vector at = ot::worldToView(Level::tileCenter(x, y));
  mouse(ot::MOVED, ot::Mouse::UNDEFINED_MOUSE_BUTTON, at);
  mouse(ot::CLICKED, button, at);
}

int movementKey(int dx, int dy) {
  return dx > 0 ? ot::Keyboard::D : dx < 0 ? ot::Keyboard::A : dy > 0 ? ot::Keyboard::S : ot::Keyboard::W;
}

struct Tally {
  long frames = 0;
  int runs = 0;
  int deaths = 0;
  int quits = 0;
  int shop_visits = 0;
  int stairs_taken = 0;
  long kills = 0;
};

// The player. Its own generator, so that the game's draws from rand() stay the game's.
class SoakBot {
 public:
  explicit SoakBot(unsigned seed) : m_random(seed) {}

  // A new run: nothing of the last one is remembered.
  void startRun() {
    m_mode = RANDOM;
    m_mode_left = 0;
    m_goal_done = false;
    m_run_kills = 0;
    m_shop_was_open = false;
    m_floor = 0;
  }
  // Once a frame: notes what changed, then plays.
  void act(Tally& tally) {
    observe(tally);
    if (--m_mode_left <= 0 || m_goal_done) chooseMode();
    Hero* p_hero = findHero();
    Level* p_level = getLevel();
    if (!p_hero || !p_level || m_mode == RANDOM) {
      pressAnything();
      return;
    }
    if (strikeNeighbour(*p_hero)) return;
    if (m_mode == FIGHT) {
      hunt(*p_hero, *p_level);
    } else {
      seek(*p_hero, *p_level, m_mode == SHOP ? TILE_SHOP : TILE_STAIRS);
    }
  }
  // Kills of the run so far, as last seen on the hero.
  long runKills() const { return m_run_kills; }

 private:
  enum Mode { RANDOM, FIGHT, SHOP, STAIRS };

  int uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }
  bool chance(int in) { return uniform(1, in) == 1; }

  void observe(Tally& tally) {
    Hero* p_hero = findHero();
    if (!p_hero) return;
    m_run_kills = p_hero->getKills();
    bool open = p_hero->getShop() && p_hero->getShop()->isOpen();
    if (open && !m_shop_was_open) tally.shop_visits++;
    m_shop_was_open = open;
    if (Level* p_level = getLevel()) {
      if (p_level->getFloor() != m_floor) {
        tally.stairs_taken++;
        if (m_mode == STAIRS) m_goal_done = true;
      }
      m_floor = p_level->getFloor();
    }
  }

  void chooseMode() {
    m_goal_done = false;
    m_shop_presses = 0;
    int roll = uniform(1, 100);
    m_mode = roll <= 40 ? RANDOM : roll <= 70 ? FIGHT : roll <= 85 ? SHOP : STAIRS;
    // Goals give up after 30 s of play; the rest change every 5 to 20 s.
    m_mode_left = (m_mode == SHOP || m_mode == STAIRS) ? 900 : uniform(150, 600);
  }

  // Any key with any action, valid or not, and the mouse anywhere, mostly in the view.
  void pressAnything() {
    if (chance(2)) {
      int code = uniform(ot::Keyboard::UNDEFINED_KEY, ot::Keyboard::BACKQUOTE);
      int action = uniform(ot::UNDEFINED_KEYBOARD_ACTION, ot::KEY_DOWN);
      // Q ends the run: let a press through only rarely, so runs mostly end in death.
      if (code == ot::Keyboard::Q && action == ot::KEY_PRESSED && !chance(200)) action = ot::KEY_DOWN;
      key(code, action);
    }
    if (chance(3)) {
      ot::Box view = ot::WorldManager::getInstance().getView();
      float reach = chance(20) ? 10000.0f : 1.0f;  // far outside now and then
      std::uniform_real_distribution<float> x(-reach, view.getHorizontal() * reach);
      std::uniform_real_distribution<float> y(-reach, view.getVertical() * reach);
      mouse(uniform(ot::UNDEFINED_MOUSE_ACTION, ot::MOVED),
            uniform(ot::Mouse::UNDEFINED_MOUSE_BUTTON, ot::Mouse::MIDDLE),
            ot::Vector(x(m_random), y(m_random)));
    }
  }

  // Blocks now and then and strikes a creature next to the hero; false when there is none.
  bool strikeNeighbour(const Hero& hero) {
    static const int SIDES[4][2] = {{1, 0}, {-1, 0}, {0, 1}, {0, -1}};
    for (const auto& side : SIDES) {
      int x = hero.getGx() + side[0];
      int y = hero.getGy() + side[1];
      if (!unitAt(x, y, &hero)) continue;
      if (chance(4)) key(ot::Keyboard::LEFTSHIFT, ot::KEY_PRESSED);
      clickTile(ot::Mouse::LEFT, x, y);
      return true;
    }
    return false;
  }

  // Toward the nearest enemy, shooting when it stands in line.
  void hunt(const Hero& hero, const Level& level) {
    ot::ObjectList enemies = ot::WorldManager::getInstance().objectsOfType("Enemy");
    const GridEntity* p_nearest = nullptr;
    int best = 1 << 30;
    for (int i = 0; i < enemies.getCount(); i++) {
      auto* p_enemy = dynamic_cast<const GridEntity*>(enemies[i]);
      if (!p_enemy) continue;
      int d = std::abs(p_enemy->getGx() - hero.getGx()) + std::abs(p_enemy->getGy() - hero.getGy());
      if (d < best) {
        best = d;
        p_nearest = p_enemy;
      }
    }
    if (!p_nearest) return;
    int x = p_nearest->getGx();
    int y = p_nearest->getGy();
    if ((x == hero.getGx() || y == hero.getGy()) && best <= 6 && chance(3)) clickTile(ot::Mouse::RIGHT, x, y);
    walkToward(hero, level, [x, y](int tx, int ty, Tile) { return tx == x && ty == y; });
  }

  // To the nearest tile of the kind, then E; in the shop, a few number keys and E again.
  void seek(const Hero& hero, const Level& level, Tile goal) {
    if (level.tileAt(hero.getGx(), hero.getGy()) != goal) {
      walkToward(hero, level, [goal](int, int, Tile tile) { return tile == goal; });
      return;
    }
    bool open = hero.getShop() && hero.getShop()->isOpen();
    if (goal == TILE_STAIRS || (!open && m_shop_presses == 0)) {
      key(ot::Keyboard::E, ot::KEY_PRESSED);
    } else if (open && m_shop_presses < 6) {
      key(uniform(ot::Keyboard::NUM1, ot::Keyboard::NUM5), ot::KEY_PRESSED);
    } else if (open) {
      key(ot::Keyboard::E, ot::KEY_PRESSED);
      m_goal_done = true;
    }
    m_shop_presses++;
  }

  // Holds the key of the first step of the shortest walkable way to a tile the test accepts.
  template <typename Goal>
  void walkToward(const Hero& hero, const Level& level, Goal is_goal) {
    std::vector<int> came(MAP_W * MAP_H, -1);
    std::queue<int> open;
    int start = hero.getGy() * MAP_W + hero.getGx();
    came[start] = start;
    open.push(start);
    static const int SIDES[4][2] = {{1, 0}, {-1, 0}, {0, 1}, {0, -1}};
    while (!open.empty()) {
      int at = open.front();
      open.pop();
      int x = at % MAP_W;
      int y = at / MAP_W;
      if (at != start && is_goal(x, y, level.tileAt(x, y))) {
        while (came[at] != start) at = came[at];
        key(movementKey(at % MAP_W - hero.getGx(), at / MAP_W - hero.getGy()), ot::KEY_DOWN);
        return;
      }
      for (const auto& side : SIDES) {
        int nx = x + side[0];
        int ny = y + side[1];
        if (!level.isWalkable(nx, ny) || came[ny * MAP_W + nx] != -1) continue;
        came[ny * MAP_W + nx] = at;
        open.push(ny * MAP_W + nx);
      }
    }
    m_goal_done = true;  // out of reach, behind a locked door
  }

  std::mt19937 m_random;
  Mode m_mode = RANDOM;
  int m_mode_left = 0;  // frames
  bool m_goal_done = false;
  int m_shop_presses = 0;
  long m_run_kills = 0;
  bool m_shop_was_open = false;
  int m_floor = 0;
};

// One frame's end: the bot plays here, between the frames, where the window's events would wait.
struct Soak {
  long target = 0;
  Tally tally;
  SoakBot* p_bot = nullptr;
  std::int64_t now_us = 0;   // the engine's clock, moved only by the frames' sleeps
  std::vector<long> rss_kb;  // sampled each minute of play
  std::vector<int> objects;  // alive at each sample
};
Soak g_soak;

std::int64_t soakTime() { return g_soak.now_us; }

void frameEnd(long milliseconds) {
  g_soak.now_us += milliseconds * std::int64_t{1000};
  g_soak.tally.frames++;
  if (g_soak.tally.frames % FRAMES_A_MINUTE == 0) {
    g_soak.rss_kb.push_back(statusKb("VmRSS"));
    g_soak.objects.push_back(objectsAlive());
  }
  if (g_soak.tally.frames >= g_soak.target) {
    ot::GameManager::getInstance().setGameOver(true);
    return;
  }
  g_soak.p_bot->act(g_soak.tally);
}

// What a fresh process would have: an empty world, the globals at their start values.
void freshRun() {
  ot::WorldManager& world = ot::WorldManager::getInstance();
  world.markForDelete(world.getAllObjects(true));
  world.update();
  g_enemy_level = 0;
  g_floor_visited[0] = true;
  g_floor_visited[1] = false;
  g_floor_stash[0].clear();
  g_floor_stash[1].clear();
  populateWorld();
}

long argument(int argc, char** argv, int i, long fallback) {
  if (argc <= i) return fallback;
  char* p_end = nullptr;
  long value = std::strtol(argv[i], &p_end, 10);
  return (*p_end == '\0' && value >= 0) ? value : -1;
}

}  // namespace

int main(int argc, char** argv) {
  long frames = argument(argc, argv, 1, 100000);
  long seed = argument(argc, argv, 2, 1);
  long allowed_growth_mb = argument(argc, argv, 3, 4);
  if (argc > 4 || frames < 1 || seed < 1 || seed > 0x7fffffff || allowed_growth_mb < 0) {
    std::fprintf(stderr, "usage: ostrel-soak [frames] [seed] [allowed growth in MB]\n");
    return 2;
  }
  // The repository's ot-config.txt would open a window.
  setenv("OSTREL_CONFIG", "/dev/null", 1);
  ot::Config& config = ot::Config::getInstance();
  config.setHeadless(true);
  config.setNetworking(false);
  config.setRandomSeed(static_cast<int>(seed));
  ot::GameManager& game = ot::GameManager::getInstance();
  if (game.startUp() != 0) {
    std::fprintf(stderr, "soak: the engine didn't start\n");
    game.shutDown();
    return 1;
  }
  ot::LogManager::getInstance().setFlush(true);
  loadGameSprites();

  SoakBot bot(static_cast<unsigned>(seed));
  g_soak.target = frames;
  g_soak.p_bot = &bot;
  ot::Clock::setTimeSource(soakTime);
  ot::GameManager::setSleepFunction(frameEnd);
  Tally& tally = g_soak.tally;
  while (tally.frames < frames) {
    freshRun();
    bot.startRun();
    tally.runs++;
    game.run();
    tally.kills += bot.runKills();
    if (tally.frames >= frames) break;
    if (findHero())
      tally.quits++;
    else
      tally.deaths++;
  }
  int alive = objectsAlive();
  ot::GameManager::setSleepFunction(nullptr);
  ot::Clock::setTimeSource(nullptr);
  game.shutDown();

  std::printf("soak: %ld frames (%.1f minutes of play), seed %ld\n", tally.frames,
              static_cast<double>(tally.frames) / FRAMES_A_MINUTE, seed);
  std::printf("runs %d: %d ended by death, %d by Q, the last by the frame count\n", tally.runs, tally.deaths,
              tally.quits);
  std::printf("shop visits %d, stairs taken %d, kills %ld, input events %ld\n", tally.shop_visits,
              tally.stairs_taken, tally.kills, g_events);
  std::printf("objects alive at the end %d\n", alive);
  std::printf("peak resident memory %.1f MB\n", mb(statusKb("VmHWM")));
  std::printf("resident memory each minute of play (MB):");
  for (size_t i = 0; i < g_soak.rss_kb.size(); i++) std::printf(" %.1f", mb(g_soak.rss_kb[i]));
  std::printf("\nobjects alive each minute:");
  for (int n : g_soak.objects) std::printf(" %d", n);
  std::printf("\n");
  if (g_soak.rss_kb.size() < 5) return 0;
#if defined(__SANITIZE_ADDRESS__)
  // Freed blocks wait in a quarantine of a few hundred MB before reuse: resident memory says nothing here.
  std::printf("resident memory not judged under AddressSanitizer: its quarantine holds freed blocks\n");
  return 0;
#endif
  long first = g_soak.rss_kb[0];
  long highest = *std::max_element(g_soak.rss_kb.begin(), g_soak.rss_kb.end());
  std::printf("after the first minute: %.1f MB, highest later %.1f MB, growth %.1f MB (allowed %ld)\n",
              mb(first), mb(highest), mb(highest - first), allowed_growth_mb);
  return highest - first > allowed_growth_mb * 1024 ? 1 : 0;
}
