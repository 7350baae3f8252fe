#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/support/FontFile.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/LogReader.h"
#include "tests/support/WindowProcess.h"

// Last: Xlib's macros would clash with the headers above.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

// The real game in a real window: started as a player starts it (from the
// repository root), driven by xdotool, its log read and its window's pixels
// looked at. Every wait is bounded.
namespace {

using ot_test::waitForExit;
using ot_test::xdotool;

constexpr const char* TITLE = "OstrelGameWindowTest";

// Pixels of the window by kind of colour, and where the hero's cyan stands.
struct Screen {
  int blue = 0, red = 0, yellow = 0, cyan = 0, white = 0;
  double hero_x = -1;  // mean x of cyan pixels above the bottom HUD line
};

Screen look(unsigned long window) {
  Screen screen;
  ::Display* p_x = XOpenDisplay(nullptr);
  if (!p_x) return screen;
  XWindowAttributes attributes;
  XGetWindowAttributes(p_x, window, &attributes);
  XImage* p_image = XGetImage(p_x, window, 0, 0, attributes.width, attributes.height, AllPlanes, ZPixmap);
  double cyan_x = 0;
  int hero_pixels = 0;
  for (int y = 0; p_image && y < attributes.height; y++) {
    for (int x = 0; x < attributes.width; x++) {
      unsigned long pixel = XGetPixel(p_image, x, y);
      int r = (pixel >> 16) & 0xff, g = (pixel >> 8) & 0xff, b = pixel & 0xff;
      bool hi_r = r > 200, hi_g = g > 200, hi_b = b > 200, lo_r = r < 60, lo_g = g < 60, lo_b = b < 60;
      if (lo_r && lo_g && hi_b) screen.blue++;
      if (hi_r && lo_g && lo_b) screen.red++;
      if (hi_r && hi_g && lo_b) screen.yellow++;
      if (hi_r && hi_g && hi_b) screen.white++;
      if (lo_r && hi_g && hi_b) {
        screen.cyan++;
        if (y < attributes.height * 20 / 24) {
          cyan_x += x;
          hero_pixels++;
        }
      }
    }
  }
  if (hero_pixels > 0) screen.hero_x = cyan_x / hero_pixels;
  if (p_image) XDestroyImage(p_image);
  XCloseDisplay(p_x);
  return screen;
}

// Starts a game program in a window from dir (by default the repository root), logging to log_path.
pid_t startInWindow(const char* binary, const std::string& log_path, const char* argument = nullptr,
                    const char* dir = std::getenv("OSTREL_SOURCE_DIR")) {
  std::string config = ot_test::writeTempFile(
      "game-window-config.txt", "networking:false,\nrandom_seed:1,\nwindow_title:" + std::string(TITLE) +
                                    ",\nfont_file:" + ot_test::fontFile() + ",\n");
  pid_t pid = fork();
  if (pid == 0) {
    setenv("OSTREL_CONFIG", config.c_str(), 1);
    setenv("OSTREL_LOG", log_path.c_str(), 1);
    if (chdir(dir) != 0) _exit(126);
    execl(binary, binary, argument, static_cast<char*>(nullptr));
    _exit(127);
  }
  return pid;
}

void expectCleanLog(const std::vector<std::string>& log) {
  for (const std::string& line : log) {
    EXPECT_EQ(std::string::npos, line.find("Error")) << line;
    EXPECT_EQ(std::string::npos, line.find("failed")) << line;
  }
  ASSERT_FALSE(log.empty());
  EXPECT_EQ("** Game engine stopped **", log.back());
}

TEST(GameWindow, InputPlaysTheGame) {
  std::string log_path = ot_test::writeTempFile("game-window.log", "");
  pid_t pid = startInWindow(OSTREL_GAME_BINARY, log_path);
  unsigned long window = ot_test::focusWindow(TITLE);
  ASSERT_NE(0u, window) << "no game window";
  usleep(500 * 1000);  // a few frames drawn
  Screen start = look(window);

  ASSERT_EQ(0, xdotool("keydown d sleep 1 keyup d"));
  ASSERT_EQ(0,
            xdotool("mousemove --window " + std::to_string(window) + " 1000 100 click 1 sleep 0.3 click 3"));
  usleep(300 * 1000);
  Screen moved = look(window);
  ASSERT_EQ(0, xdotool("key q"));
  EXPECT_EQ(0, waitForExit(pid));

  // Walls, the HP item, the gold item, the hero and the floor item, each in its colour.
  EXPECT_GT(start.blue, 1000);
  EXPECT_GT(start.red, 50);
  EXPECT_GT(start.yellow, 50);
  EXPECT_GT(start.cyan, 50);
  EXPECT_GT(moved.hero_x, start.hero_x + 20) << "the hero didn't walk right";
  std::vector<std::string> log = ot_test::readLogMessages(log_path);
  EXPECT_TRUE(ot_test::logHas(log, "Level::Level(): 23 spawn points, start (3,2)."));
  expectCleanLog(log);
}

TEST(GameWindow, WithoutItsSpritesTheGameStillDraws) {
  std::string log_path = ot_test::writeTempFile("game-no-sprites.log", "");
  std::string empty_dir = ot_test::writeTempFile("no-sprites-window", "");
  unlink(empty_dir.c_str());
  ASSERT_EQ(0, mkdir(empty_dir.c_str(), 0700));
  pid_t pid = startInWindow(OSTREL_GAME_BINARY, log_path, nullptr, empty_dir.c_str());
  unsigned long window = ot_test::focusWindow(TITLE);
  ASSERT_NE(0u, window) << "no game window";
  usleep(500 * 1000);
  Screen screen = look(window);
  ASSERT_EQ(0, xdotool("key q"));
  EXPECT_EQ(0, waitForExit(pid));
  rmdir(empty_dir.c_str());

  EXPECT_GT(screen.blue, 1000);  // walls
  EXPECT_GT(screen.red, 50);     // "HP"
  EXPECT_GT(screen.yellow, 50);  // "Gold"
  EXPECT_GT(screen.white, 50);   // "Score", the timer line, the aim mark
  EXPECT_EQ(-1, screen.hero_x);  // the hero has no picture: only the floor item is cyan
  std::vector<std::string> log = ot_test::readLogMessages(log_path);
  EXPECT_EQ(1, ot_test::logCount(log, "game: failed to load sprite sprites/hero.txt"));
  EXPECT_EQ(1, ot_test::logCount(log, "game: failed to load sprite sprites/arrow-down.txt"));
  EXPECT_EQ("** Game engine stopped **", log.back());
}

TEST(GameWindow, AScriptedRunReachesTheEnd) {
  std::string log_path = ot_test::writeTempFile("game-tour.log", "");
  std::string shots = ot_test::writeTempFile("tour-shots", "");
  unlink(shots.c_str());
  ASSERT_EQ(0, mkdir(shots.c_str(), 0700));
  pid_t pid = startInWindow(OSTREL_GAME_TOUR_BINARY, log_path, shots.c_str());
  EXPECT_EQ(0, waitForExit(pid)) << "its standard error names the failed checks";
  std::vector<std::string> log = ot_test::readLogMessages(log_path);
  EXPECT_TRUE(ot_test::logHas(log, "useStairs(): floor 1 -> floor 2"));
  expectCleanLog(log);
  for (const char* name : {"start", "creatures", "shop", "floor2", "gameover"}) {
    struct stat info {};
    EXPECT_EQ(0, stat((shots + "/" + name + ".png").c_str(), &info)) << name;
    EXPECT_GT(info.st_size, 1000) << name;
  }
}

}  // namespace
