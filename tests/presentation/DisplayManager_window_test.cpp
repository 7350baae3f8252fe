#include "engine/presentation/DisplayManager.h"

#include <gtest/gtest.h>

#include <SFML/Graphics.hpp>
#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "engine/presentation/Frame.h"
#include "engine/presentation/Shape.h"
#include "tests/support/FontFile.h"
#include "tests/support/HeadlessEngine.h"

// Draws into a real window under Xvfb and reads the back buffer before the
// next swap. The window is 640 by 480 pixels of 80 by 24 cells, so a cell is
// 8 by 20 pixels and the font 12 (font_scale 1.5): at that size the ink of
// "a", "c" and "o" stays inside the cell's background rectangle, which reaches
// from (x - 0.8, y + 4) to (x + 7.2, y + 24) around the cell's pixel corner.
// Mesa's GL driver under Xvfb allocates with calloc and is unloaded at exit,
// before the leak check, so its still-reachable blocks show as lost (a bare
// SFML program that makes one texture shows the same 112 bytes). Nothing of
// ours calls calloc; the check stays on for everything else.
extern "C" const char* __lsan_default_suppressions() { return "leak:__interceptor_calloc\n"; }

namespace {

using ot::DisplayManager;
using ot::Vector;

constexpr float CELL_W = 8;
constexpr float CELL_H = 20;

struct PixelBox {
  int left = 1 << 30, top = 1 << 30, right = -1, bottom = -1;  // inclusive
  bool empty() const { return right < 0; }
  void add(int x, int y) {
    left = std::min(left, x);
    top = std::min(top, y);
    right = std::max(right, x);
    bottom = std::max(bottom, y);
  }
};

bool isRed(sf::Color c) { return c.r > 0 && c.g == 0 && c.b == 0; }
bool isInk(sf::Color c) { return c.r > 0 || c.g > 0 || c.b > 0; }

// Whether pixel (x, y) is one the background rectangle of cell (cx, cy) covers:
// its centre lies inside.
bool inCell(int x, int y, float cx, float cy) {
  float left = cx * CELL_W - CELL_W / 10, top = cy * CELL_H + CELL_H / 5;
  float px = static_cast<float>(x) + 0.5f, py = static_cast<float>(y) + 0.5f;
  return px >= left && px < left + CELL_W && py >= top && py < top + CELL_H;
}

class DisplayWindowTest : public ot_test::HeadlessEngine {
 protected:
  std::string configText() const override {
    return "headless:false,\nnetworking:false,\nrandom_seed:1,\n"
           "window_horizontal_pixels:" +
           std::to_string(horizontalPixels()) +
           ",\n"
           "window_vertical_pixels:480,\nwindow_horizontal_chars:80,\nwindow_vertical_chars:24,\n"
           "font_scale:1.5,\nfont_file:" +
           ot_test::fontFile() + ",\n";
  }
  int logLevel() const override { return 25; }
  virtual int horizontalPixels() const { return 640; }

  void SetUp() override {
    HeadlessEngine::SetUp();
    if (HasFatalFailure()) return;
    ASSERT_NE(nullptr, display().getWindow());
    // A new window's back buffer holds anything until the first clear.
    ASSERT_EQ(0, display().swapBuffers());
  }

  static DisplayManager& display() { return DisplayManager::getInstance(); }

  // What has been drawn since the last swap.
  static sf::Image grab() {
    sf::RenderWindow& window = *display().getWindow();
    sf::Texture texture;
    texture.create(window.getSize().x, window.getSize().y);
    texture.update(window);
    return texture.copyToImage();
  }

  // The box around the pixels that pass the test; empty if none does.
  template <typename Test>
  static PixelBox find(const sf::Image& image, Test test) {
    PixelBox box;
    for (unsigned y = 0; y < image.getSize().y; y++) {
      for (unsigned x = 0; x < image.getSize().x; x++) {
        if (test(image.getPixel(x, y))) box.add(static_cast<int>(x), static_cast<int>(y));
      }
    }
    return box;
  }

  // Columns of the cells in row cy whose rectangle holds ink.
  static std::vector<int> inkedCells(const sf::Image& image, int cy) {
    std::vector<int> cells;
    for (int cx = 0; cx < 80; cx++) {
      bool inked = false;
      int x0 = static_cast<int>(static_cast<float>(cx) * CELL_W) - 1;
      int y0 = static_cast<int>(static_cast<float>(cy) * CELL_H);
      for (int y = std::max(y0, 0); y < y0 + 2 * static_cast<int>(CELL_H) && y < 480; y++) {
        for (int x = std::max(x0, 0); x < x0 + 2 * static_cast<int>(CELL_W) && x < 640; x++) {
          inked = inked || (inCell(x, y, static_cast<float>(cx), static_cast<float>(cy)) &&
                            isInk(image.getPixel(static_cast<unsigned>(x), static_cast<unsigned>(y))));
        }
      }
      if (inked) cells.push_back(cx);
    }
    return cells;
  }
};

TEST_F(DisplayWindowTest, RedCharacterInksOnlyItsCell) {
  ASSERT_EQ(0, display().drawCh(Vector(10, 5), 'o', ot::RED));
  sf::Image image = grab();
  int inside = 0, strong = 0, outside = 0;
  for (unsigned y = 0; y < 480; y++) {
    for (unsigned x = 0; x < 640; x++) {
      sf::Color c = image.getPixel(x, y);
      if (!isInk(c)) continue;
      EXPECT_TRUE(isRed(c)) << x << "," << y;
      if (inCell(static_cast<int>(x), static_cast<int>(y), 10, 5)) {
        inside++;
        if (c.r > 200) strong++;
      } else {
        outside++;
      }
    }
  }
  EXPECT_GT(inside, 10);
  EXPECT_GT(strong, 0);
  EXPECT_EQ(0, outside);
}

TEST_F(DisplayWindowTest, CharacterOnTopWipesWhatLayBelow) {
  display().drawCh(Vector(10, 5), 'o', ot::RED);
  display().drawCh(Vector(10, 5), '.', ot::GREEN);
  display().drawCh(Vector(12, 5), 'o', ot::RED);
  display().drawCh(Vector(12, 5), ' ', ot::RED);
  sf::Image image = grab();
  EXPECT_TRUE(find(image, isRed).empty());
  PixelBox green = find(image, [](sf::Color c) { return c.g > 0; });
  ASSERT_FALSE(green.empty());
  EXPECT_TRUE(inCell(green.left, green.top, 10, 5));
  EXPECT_TRUE(inCell(green.right, green.bottom, 10, 5));
}

TEST_F(DisplayWindowTest, JustificationPlacesTheFirstCell) {
  EXPECT_EQ(0, display().drawString(Vector(10, 3), "aco", ot::RIGHT_JUSTIFIED, ot::RED));
  EXPECT_EQ(0, display().drawString(Vector(10, 5), "acoac", ot::CENTER_JUSTIFIED, ot::RED));
  EXPECT_EQ(0, display().drawString(Vector(10, 7), "ac", ot::CENTER_JUSTIFIED, ot::RED));
  EXPECT_EQ(0, display().drawString(Vector(10, 9), "ac", ot::LEFT_JUSTIFIED, ot::RED));
  EXPECT_EQ(0, display().drawString(Vector(10, 11), "", ot::RIGHT_JUSTIFIED, ot::RED));
  sf::Image image = grab();
  EXPECT_EQ((std::vector<int>{7, 8, 9}), inkedCells(image, 3));  // ends one left of x
  EXPECT_EQ((std::vector<int>{8, 9, 10, 11, 12}), inkedCells(image, 5));
  EXPECT_EQ((std::vector<int>{9, 10}), inkedCells(image, 7));
  EXPECT_EQ((std::vector<int>{10, 11}), inkedCells(image, 9));
  EXPECT_TRUE(inkedCells(image, 11).empty());
}

TEST_F(DisplayWindowTest, ShakeOffsetsFollowTheSeededDraws) {
  srand(7);
  std::vector<int> draws;
  for (int i = 0; i < 14; i++) draws.push_back(rand());
  srand(7);
  display().shake(3, 3, 5, false);
  display().shake(1, 0, 2, true);
  for (int frame = 0; frame < 7; frame++) {
    SCOPED_TRACE(frame);
    ASSERT_EQ(0, display().swapBuffers());
    // Severities 4 and 3: x one of 5, 3, 1, -1, -3 and y one of 4, 2, 0, -2.
    EXPECT_EQ(5 - (draws[2 * frame] % 5) * 2, display().getShakeOffsetX());
    EXPECT_EQ(4 - (draws[2 * frame + 1] % 4) * 2, display().getShakeOffsetY());
    EXPECT_EQ(6 - frame, display().getShakeDuration());
  }
  display().swapBuffers();
  EXPECT_EQ(0, display().getShakeOffsetX());
  EXPECT_EQ(0, display().getShakeOffsetY());
  EXPECT_EQ(0, display().getShakeDuration());
  EXPECT_EQ(draws[0], (srand(7), rand()));  // nothing else drew from rand
}

TEST_F(DisplayWindowTest, ShakeOfZeroMovesTheTextOneStepButNotItsBackground) {
  display().drawCh(Vector(10, 5), 'o', ot::RED);
  auto lit = [](sf::Color c) { return c.r > 0; };
  PixelBox still = find(grab(), lit);
  display().shake(0, 0, 1, false);
  display().swapBuffers();
  ASSERT_EQ(1, display().getShakeOffsetX());
  ASSERT_EQ(1, display().getShakeOffsetY());
  display().setBackgroundColor(ot::BLUE);
  display().drawCh(Vector(10, 5), 'o', ot::RED);
  sf::Image image = grab();
  PixelBox shaken = find(image, lit);
  PixelBox steady = find(image, [](sf::Color c) { return c.r == 0 && c.b > 0; });
  EXPECT_EQ(still.left + 1, shaken.left);
  EXPECT_EQ(still.top + 1, shaken.top);
  EXPECT_EQ(79, steady.left);
  EXPECT_EQ(104, steady.top);
  display().swapBuffers();
  EXPECT_EQ(0, display().getShakeOffsetX());
}

}  // namespace
