#include "engine/core/Config.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "engine/core/LogManager.h"
#include "engine/core/Utility.h"
#include "tests/support/LogReader.h"

using ot::Config;
using ot_test::logHas;
using ot_test::writeTempFile;

namespace {

// Loads settings from a file of this text, with the log open at level 1.
class ConfigFile : public ::testing::Test {
 protected:
  void SetUp() override {
    saved_config_ = getenv("OSTREL_CONFIG") ? getenv("OSTREL_CONFIG") : "";
    setenv("OSTREL_LOG", ot_test::testLogPath().c_str(), 1);
    ASSERT_EQ(0, ot::LogManager::getInstance().startUp());
    ot::LogManager::getInstance().setLogLevel(1);
    ot::LogManager::getInstance().setFlush(true);
    Config::getInstance().reset();
    // An empty text searches the last parse: start from an empty one.
    ot::match(" ", "");
  }
  void TearDown() override {
    ot::LogManager::getInstance().setLogLevel(0);
    ot::LogManager::getInstance().shutDown();
    Config::getInstance().reset();
    setenv("OSTREL_CONFIG", saved_config_.c_str(), 1);
  }
  Config& load(const std::string& text) {
    setenv("OSTREL_CONFIG", writeTempFile("settings.txt", text).c_str(), 1);
    Config::getInstance().loadConfig("");
    return Config::getInstance();
  }
  std::string saved_config_;
};

}  // namespace

TEST_F(ConfigFile, MissingFileKeepsDefaultsAndNamesTheDefaultFile) {
  setenv("OSTREL_CONFIG", "/nonexistent/elsewhere.txt", 1);
  Config& c = Config::getInstance();
  c.loadConfig("");
  EXPECT_EQ(33, c.getFrameTime());
  EXPECT_EQ(1024, c.getWindowHorizontalPixels());
  EXPECT_EQ("Ostrel", c.getWindowTitle());
  EXPECT_TRUE(c.getNetworking());
  EXPECT_EQ(20, c.getGridWidth());
  EXPECT_TRUE(logHas(ot_test::readLogMessages(),
                     "Config::readConfig(): Cannot open Ostrel configuration file 'ot-config.txt'."));
}

TEST_F(ConfigFile, ReadsEveryKindOfValue) {
  Config& c = load(
      "frame_time:20,\nfont_scale:1.5,\nwindow_horizontal_pixels:800,\nwindow_vertical_pixels:600,\n"
      "window_horizontal_chars:100,\nwindow_vertical_chars:30,\nwindow_background_color:blue,\n"
      "window_style:none,\nwindow_state:fullscreen,\nwindow_title:Dungeon,\nshow_mouse:true,\n"
      "headless:true,\nfont_file:f.ttf,\nlogfile:g.log,\nrandom_seed:-1,\nnetworking:false,\n"
      "grid_width:7,\ngrid_height:9,\nquadtree_depth:3,\nquadtree_threshold:4,\nsignals:false,\n");
  EXPECT_EQ(20, c.getFrameTime());
  EXPECT_FLOAT_EQ(1.5f, c.getFontScale());
  EXPECT_EQ(800, c.getWindowHorizontalPixels());
  EXPECT_EQ(600, c.getWindowVerticalPixels());
  EXPECT_EQ(100, c.getWindowHorizontalChars());
  EXPECT_EQ(30, c.getWindowVerticalChars());
  EXPECT_EQ(ot::BLUE, c.getWindowBackgroundColor());
  EXPECT_EQ(0, c.getWindowStyle());
  EXPECT_EQ(1, c.getWindowState());
  EXPECT_EQ("Dungeon", c.getWindowTitle());
  EXPECT_TRUE(c.getShowMouse());
  EXPECT_TRUE(c.getHeadless());
  EXPECT_EQ("f.ttf", c.getFontFile());
  EXPECT_EQ("g.log", c.getLogfile());
  EXPECT_EQ(-1, c.getRandomSeed());
  EXPECT_FALSE(c.getNetworking());
  EXPECT_EQ(7, c.getGridWidth());
  EXPECT_EQ(9, c.getGridHeight());
  EXPECT_EQ(3, c.getQuadtreeDepth());
  EXPECT_EQ(4, c.getQuadtreeThreshold());
  EXPECT_FALSE(c.getSignals());
}

TEST_F(ConfigFile, CommentLinesCarriageReturnsAndBlanks) {
  Config& c = load(
      "# frame_time:99,\r\n\r\nframe_time:40,\r\nwindow_title:My Game,  # not a comment\r\n"
      "#grid_width:1,\n");
  EXPECT_EQ(40, c.getFrameTime());
  EXPECT_EQ("MyGame", c.getWindowTitle());  // "#" after a comma is only another key
  EXPECT_EQ(20, c.getGridWidth());
}

TEST_F(ConfigFile, ALineWithoutCommaRunsIntoTheNext) {
  Config& c = load("frame_time:40\nfont_scale:3,\n");
  EXPECT_EQ(40, c.getFrameTime());  // "40font_scale" reads as 40
  EXPECT_FLOAT_EQ(2.0f, c.getFontScale());
}

TEST_F(ConfigFile, QuirksOfValuesStay) {
  Config& c = load(
      "frame_time:abc,\nshow_mouse:True,\nwindow_background_color:yellow,\nwindow_style:fancy,\n"
      "window_state:maximised,\nheadless:,\n");
  EXPECT_EQ(0, c.getFrameTime());
  EXPECT_FALSE(c.getShowMouse());
  EXPECT_EQ(ot::BLACK, c.getWindowBackgroundColor());
  EXPECT_EQ(5, c.getWindowStyle());
  EXPECT_EQ(0, c.getWindowState());
  EXPECT_FALSE(c.getHeadless());
  auto log = ot_test::readLogMessages();
  EXPECT_TRUE(logHas(log, "loadConfig(): Unsupported window color 'yellow'"));
  EXPECT_TRUE(logHas(log, "loadConfig(): Unsupported window style 'fancy'"));
  EXPECT_TRUE(logHas(log, "loadConfig(): Unsupported window state 'maximised'"));
}

TEST_F(ConfigFile, SettersBeforeLoadingSurviveKeysTheFileLacks) {
  Config::getInstance().setGridWidth(11);
  Config& c = load("frame_time:10,\n");
  EXPECT_EQ(11, c.getGridWidth());
  EXPECT_EQ(10, c.getFrameTime());
  EXPECT_EQ("frame_time:10,", c.getConfig());
}

TEST_F(ConfigFile, PrintOutListsTheSettingsInOrder) {
  Config& c = load("window_state:fullscreen,\nwindow_title:T,\n");
  c.print();
  auto log = ot_test::readLogMessages();
  std::vector<std::string> expected = {"-----------------------------------",
                                       "Ostrel configuration:",
                                       "  Window horizontal pixels: 1024",
                                       "  Window vertical pixels: 768",
                                       "  Window horizontal characters: 80",
                                       "  Window vertical characters: 24",
                                       "  Window background color: 0",
                                       "  Frame time: 33",
                                       "  Window style: 5",
                                       "  Window state: fullscreen",
                                       "  Window title: T",
                                       "  Show mouse: false",
                                       "  Headless: false",
                                       "  Font file: ot-font.ttf",
                                       "  Log file: ostrel.log",
                                       "  Random seed: 0",
                                       "  Networking: true",
                                       "  Scene graph: grid",
                                       "  Grid width: 20",
                                       "  Grid height: 8",
                                       "-----------------------------------"};
  ASSERT_GE(log.size(), expected.size());
  std::vector<std::string> tail(log.end() - expected.size(), log.end());
  EXPECT_EQ(expected, tail);
}
