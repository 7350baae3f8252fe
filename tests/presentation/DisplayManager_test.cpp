#include "engine/presentation/DisplayManager.h"

#include <SFML/Graphics/Color.hpp>

#include "engine/core/Config.h"
#include "tests/support/HeadlessEngine.h"

namespace {

using ot::Vector;

class DisplayManagerTest : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 5; }
  ot::DisplayManager& display = ot::DisplayManager::getInstance();
};

TEST_F(DisplayManagerTest, CellSizeIsTheWindowOverTheCellCounts) {
  // Pixels, cells, font scale, then the cell and font sizes; the default first: 12.8 x 2 cuts to 25.
  const float geometries[][8] = {{1024, 768, 80, 24, 2, 12.8f, 32, 25},
                                 {1000, 300, 20, 12, 1.5f, 50, 25, 37},
                                 {100, 100, 3, 3, 1, 100.0f / 3, 100.0f / 3, 33}};
  ot::Config& config = ot::Config::getInstance();
  for (const auto& g : geometries) {
    config.setWindowHorizontalPixels(static_cast<int>(g[0]));
    config.setWindowVerticalPixels(static_cast<int>(g[1]));
    config.setWindowHorizontalChars(static_cast<int>(g[2]));
    config.setWindowVerticalChars(static_cast<int>(g[3]));
    config.setFontScale(g[4]);
    if (&g != geometries) display.shutDown();
    EXPECT_EQ(&g == geometries ? -1 : 0, display.startUp());
    EXPECT_EQ(Vector(g[5], g[6]), Vector(ot::charWidth(), ot::charHeight())) << g[0];
    EXPECT_EQ(g[7], static_cast<float>(display.cellFontSize())) << g[0];
  }
  // New cell counts change the cell, not the window.
  display.setHorizontalChars(50);
  display.setVerticalChars(4);
  EXPECT_EQ(Vector(2, 25), Vector(ot::charWidth(), ot::charHeight()));
}

TEST_F(DisplayManagerTest, UnnamedColoursDrawWhite) {
  const sf::Color named[] = {{0, 0, 0},   {255, 0, 0},   {0, 255, 0},   {255, 255, 0},
                             {0, 0, 255}, {255, 0, 255}, {0, 255, 255}, {255, 255, 255}};
  for (int color : {0, 1, 2, 3, 4, 5, 6, 7, 8, 99}) {
    unsigned char r = 1, g = 2, b = 3;
    ot::colorToRGB(static_cast<ot::Color>(color), r, g, b);
    EXPECT_EQ(color < 8 ? named[color] : sf::Color(1, 2, 3), sf::Color(r, g, b)) << color;
    EXPECT_EQ(color < 8 ? named[color] : sf::Color::White, ot::colorToSFML(static_cast<ot::Color>(color)));
  }
  auto log = logMessages();
  for (const char* line : {"colorToSFML(): Color is CUSTOM.", "colorToSFML(): Color 99 not supported.",
                           "colorToRGB(): Color 99 not supported."})
    EXPECT_TRUE(ot_test::logHas(log, line)) << line;
  EXPECT_FALSE(ot_test::logHas(log, "colorToRGB(): Color 8 not supported."));
}

TEST_F(DisplayManagerTest, DrawingWithoutAWindowFails) {
  EXPECT_EQ(nullptr, display.getWindow());
  EXPECT_FALSE(display.setBackgroundColor(ot::BLUE));
  for (bool started : {true, false}) {
    if (!started) display.shutDown();
    size_t lines = logMessages().size();
    EXPECT_EQ(-1, display.drawCh(Vector(1, 1), 'x', 10, 20, 30));
    EXPECT_EQ(-1, display.drawString(Vector(1, 1), "abc", ot::CENTER_JUSTIFIED, ot::RED));
    EXPECT_EQ(-1, display.swapBuffers());
    // The colour form looks at headless first, so it returns before the check.
    EXPECT_EQ(-1, display.drawCh(Vector(1, 1), 'x', ot::RED));
    EXPECT_EQ(lines + (started ? 0 : 3), logMessages().size());
  }
  EXPECT_EQ(0, display.startUp());
  auto log = logMessages();
  for (const char* line : {"DisplayManager not started!", "DisplayManager::shutDown(): successfully stopped.",
                           "DisplayManager::startUp(): no graphics in headless mode.",
                           "DisplayManager::startUp(): successfully started."})
    EXPECT_TRUE(ot_test::logHas(log, line)) << line;
}

}  // namespace
