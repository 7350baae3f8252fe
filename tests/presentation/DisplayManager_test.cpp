#include "engine/presentation/DisplayManager.h"

#include <gtest/gtest.h>

#include "engine/core/Config.h"
#include "tests/support/HeadlessEngine.h"

namespace {

using ot::DisplayManager;
using ot::Vector;

// The default window: 1024 by 768 pixels, 80 by 24 cells, font_scale 2.
class DisplayTest : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 5; }

  // Starts the display again, headless, on another geometry.
  static void restart(int h_pixels, int v_pixels, int h_chars, int v_chars, float font_scale) {
    ot::Config& config = ot::Config::getInstance();
    config.setWindowHorizontalPixels(h_pixels);
    config.setWindowVerticalPixels(v_pixels);
    config.setWindowHorizontalChars(h_chars);
    config.setWindowVerticalChars(v_chars);
    config.setFontScale(font_scale);
    DisplayManager::getInstance().shutDown();
    ASSERT_EQ(0, DisplayManager::getInstance().startUp());
  }
};

class DisplayConversionTest : public DisplayTest {
 protected:
  int logLevel() const override { return 30; }
};

TEST_F(DisplayTest, DefaultWindowGivesTallCellsAndFontSize25) {
  const DisplayManager& display = DisplayManager::getInstance();
  EXPECT_EQ(1024, display.getHorizontalPixels());
  EXPECT_EQ(768, display.getVerticalPixels());
  EXPECT_EQ(80, display.getHorizontalChars());
  EXPECT_EQ(24, display.getVerticalChars());
  EXPECT_FLOAT_EQ(12.8f, ot::charWidth());
  EXPECT_FLOAT_EQ(32.0f, ot::charHeight());
  EXPECT_EQ(25u, display.cellFontSize());  // 12.8 x 2 = 25.6, cut towards zero
}

TEST_F(DisplayTest, CellFollowsWindowOverCellCounts) {
  restart(640, 480, 40, 10, 2.0f);
  EXPECT_FLOAT_EQ(16.0f, ot::charWidth());
  EXPECT_FLOAT_EQ(48.0f, ot::charHeight());
  EXPECT_EQ(32u, DisplayManager::getInstance().cellFontSize());

  // Wide cells: the height is the smaller side.
  restart(1000, 300, 20, 12, 1.5f);
  EXPECT_FLOAT_EQ(50.0f, ot::charWidth());
  EXPECT_FLOAT_EQ(25.0f, ot::charHeight());
  EXPECT_EQ(37u, DisplayManager::getInstance().cellFontSize());

  // Square cells of a third of a pixel's fraction.
  restart(100, 100, 3, 3, 1.0f);
  EXPECT_FLOAT_EQ(100.0f / 3, ot::charWidth());
  EXPECT_EQ(33u, DisplayManager::getInstance().cellFontSize());
}

TEST_F(DisplayTest, SettingCharsRedrawsTheCellOnly) {
  DisplayManager& display = DisplayManager::getInstance();
  display.setHorizontalChars(64);
  display.setVerticalChars(48);
  EXPECT_EQ(64, display.getHorizontalChars());
  EXPECT_FLOAT_EQ(16.0f, ot::charWidth());
  EXPECT_FLOAT_EQ(16.0f, ot::charHeight());
  EXPECT_EQ(1024, display.getHorizontalPixels());
}

TEST_F(DisplayConversionTest, SpacesAndPixelsConvertBothWaysAndLog) {
  EXPECT_EQ(Vector(25.6f, 96.0f), ot::spacesToPixels(Vector(2, 3)));
  EXPECT_EQ(Vector(2, 3), ot::pixelsToSpaces(Vector(25.6f, 96.0f)));
  EXPECT_EQ(Vector(-12.8f, 16.0f), ot::spacesToPixels(Vector(-1, 0.5f)));
  auto log = logMessages();
  EXPECT_TRUE(ot_test::logHas(log, "spacesToPixels(int): spaces (2.00,3.00) = pixels (25.60,96.00)"));
  EXPECT_TRUE(ot_test::logHas(log, "pixelsToSpaces(): pixels (25.60,96.00) = spaces (2.00,3.00)"));
}

TEST(DisplayColor, NamedColorsMapToOpaqueChannels) {
  struct Entry {
    ot::Color color;
    sf::Color sfml;
  };
  const Entry table[] = {
      {ot::BLACK, {0, 0, 0}},      {ot::RED, {255, 0, 0}},       {ot::GREEN, {0, 255, 0}},
      {ot::YELLOW, {255, 255, 0}}, {ot::BLUE, {0, 0, 255}},      {ot::MAGENTA, {255, 0, 255}},
      {ot::CYAN, {0, 255, 255}},   {ot::WHITE, {255, 255, 255}},
  };
  for (const Entry& entry : table) {
    SCOPED_TRACE(entry.color);
    EXPECT_EQ(entry.sfml, ot::colorToSFML(entry.color));
    EXPECT_EQ(255, ot::colorToSFML(entry.color).a);
    unsigned char r = 1, g = 2, b = 3;
    ot::colorToRGB(entry.color, r, g, b);
    EXPECT_EQ(entry.sfml, sf::Color(r, g, b));
  }
}

TEST_F(DisplayTest, CustomAndUnknownColorsGiveWhiteAndLeaveChannels) {
  EXPECT_EQ(sf::Color::White, ot::colorToSFML(ot::CUSTOM));
  EXPECT_EQ(sf::Color::White, ot::colorToSFML(static_cast<ot::Color>(99)));
  unsigned char r = 1, g = 2, b = 3;
  ot::colorToRGB(ot::CUSTOM, r, g, b);
  ot::colorToRGB(static_cast<ot::Color>(99), r, g, b);
  EXPECT_EQ(sf::Color(1, 2, 3), sf::Color(r, g, b));
  auto log = logMessages();
  EXPECT_TRUE(ot_test::logHas(log, "colorToSFML(): Color is CUSTOM."));
  EXPECT_TRUE(ot_test::logHas(log, "colorToSFML(): Color 99 not supported."));
  EXPECT_TRUE(ot_test::logHas(log, "colorToRGB(): Color 99 not supported."));
  EXPECT_FALSE(ot_test::logHas(log, "colorToRGB(): Color 8 not supported."));
}

TEST_F(DisplayTest, HeadlessDrawsNothingSilentlyAndStillAnswersGeometry) {
  DisplayManager& display = DisplayManager::getInstance();
  EXPECT_TRUE(display.isStarted());
  EXPECT_EQ(nullptr, display.getWindow());
  size_t lines = logMessages().size();
  EXPECT_EQ(-1, display.drawCh(Vector(1, 1), 'x', ot::RED));
  EXPECT_EQ(-1, display.drawCh(Vector(1, 1), 'x', 10, 20, 30));
  EXPECT_EQ(-1, display.drawString(Vector(1, 1), "abc", ot::CENTER_JUSTIFIED, ot::RED));
  EXPECT_EQ(-1, display.swapBuffers());
  EXPECT_FALSE(display.setBackgroundColor(ot::BLUE));
  EXPECT_EQ(lines, logMessages().size());
  EXPECT_EQ(Vector(12.8f, 32.0f), ot::spacesToPixels(Vector(1, 1)));
}

TEST_F(DisplayTest, HeadlessStartAndStopAreLogged) {
  DisplayManager& display = DisplayManager::getInstance();
  EXPECT_EQ(-1, display.startUp());
  display.shutDown();
  EXPECT_EQ(0, display.startUp());
  auto log = logMessages();
  EXPECT_TRUE(ot_test::logHas(log, "DisplayManager::startup(): Warning! DisplayManager already started."));
  EXPECT_TRUE(ot_test::logHas(log, "DisplayManager::shutDown(): successfully stopped."));
  EXPECT_TRUE(ot_test::logHas(log, "DisplayManager::startUp(): no graphics in headless mode."));
  EXPECT_TRUE(ot_test::logHas(log, "DisplayManager::startUp(): successfully started."));
}

TEST_F(DisplayTest, DrawingBeforeStartIsRefusedWithALine) {
  DisplayManager& display = DisplayManager::getInstance();
  display.shutDown();
  EXPECT_EQ(-1, display.drawCh(Vector(1, 1), 'x', 10, 20, 30));
  EXPECT_EQ(-1, display.drawString(Vector(1, 1), "abc", ot::LEFT_JUSTIFIED, ot::RED));
  EXPECT_EQ(-1, display.swapBuffers());
  // The colour form looks at headless first, so it returns before the check.
  EXPECT_EQ(-1, display.drawCh(Vector(1, 1), 'x', ot::RED));
  EXPECT_EQ(3, ot_test::logCount(logMessages(), "DisplayManager not started!"));
}

// The offsets themselves need a window: see the windowed test.
TEST_F(DisplayTest, HeadlessFramesKeepTheShakeAndNegativeSeverityIsReported) {
  DisplayManager& display = DisplayManager::getInstance();
  display.shake(2, 1, 1, false);
  EXPECT_EQ(-1, display.swapBuffers());
  EXPECT_EQ(1, display.getShakeDuration());
  EXPECT_EQ(0, display.getShakeOffsetX());
  display.shake(-4, 0, 3, true);
  EXPECT_EQ(-2, display.getShakeSeverityX());
  EXPECT_TRUE(ot_test::logHas(
      logMessages(), "DisplayManager::shake(): Warning! negative severity (-2, 1); that axis won't shake."));
}

}  // namespace
