#include "engine/core/Config.h"

#include <sstream>

#include "engine/core/Utility.h"
#include "tests/support/HeadlessEngine.h"

using ot::Config;
using namespace ot_test;

class ConfigTest : public HeadlessEngine {
 protected:
  int logLevel() const override { return 1; }
  static Config& load(const std::string& text) {
    setenv("OSTREL_CONFIG", writeTempFile("settings.txt", text).c_str(), 1);
    Config::getInstance().loadConfig("");
    return Config::getInstance();
  }
  // The log's last lines against these, separated by "|".
  void expectLogEndsWith(const std::string& lines) {
    std::vector<std::string> expected, log = logMessages();
    std::stringstream ss(lines);
    for (std::string line; std::getline(ss, line, '|');) expected.push_back(line);
    ASSERT_GE(log.size(), expected.size());
    EXPECT_EQ(expected, std::vector<std::string>(log.end() - expected.size(), log.end()));
  }
};

TEST_F(ConfigTest, PrintsEverySettingInOrder) {
  Config& c = load(
      "frame_time:20,\nfont_scale:1.5,\nwindow_horizontal_pixels:800,\nwindow_vertical_pixels:600,\n"
      "window_horizontal_chars:100,\nwindow_vertical_chars:30,\nwindow_background_color:blue,\n"
      "window_style:none,\nwindow_state:fullscreen,\nwindow_title:Dungeon,\nshow_mouse:true,\n"
      "headless:true,\nfont_file:f.ttf,\nlogfile:g.log,\nrandom_seed:-1,\nnetworking:false,\n"
      "grid_width:7,\ngrid_height:9,\nquadtree_depth:3,\nquadtree_threshold:4,\nsignals:false,\n");
  EXPECT_FLOAT_EQ(1.5f, c.getFontScale());
  c.print();
  const std::string dashes(35, '-');
  expectLogEndsWith(
      dashes +
      "|Ostrel configuration:|  Window horizontal pixels: 800|  Window vertical pixels: 600"
      "|  Window horizontal characters: 100|  Window vertical characters: 30"
      "|  Window background color: 4|  Frame time: 20|  Window style: 0|  Window state: fullscreen"
      "|  Window title: Dungeon|  Show mouse: true|  Headless: true|  Font file: f.ttf"
      "|  Log file: g.log|  Random seed: -1|  Networking: false|  Scene graph: grid"
      "|  Grid width: 7|  Grid height: 9|" +
      dashes);
}

TEST_F(ConfigTest, FormatQuirksAreKept) {
  Config::getInstance().reset();
  ot::match(" ", "");  // or the empty text would be looked up in the engine's own parse
  setenv("OSTREL_CONFIG", "/nonexistent/elsewhere.txt", 1);
  Config::getInstance().loadConfig("");
  Config::getInstance().setGridWidth(11);
  // "# no comma", if kept, would swallow frame_time; window_vertical_chars:12 does swallow font_scale.
  Config& c = load(
      "# no comma\r\nframe_time:abc,\r\n\r\nwindow_vertical_chars:12\nfont_scale:3,\nwindow_title:My Game,#,"
      "grid_height:5,\nshow_mouse:True,\nwindow_background_color:yellow,\nwindow_style:fancy,\n"
      "window_state:maximised,\nnetworking:,\nheadless:true,\n");
  EXPECT_FLOAT_EQ(2.0f, c.getFontScale());
  c.print();
  const std::string dashes(35, '-');
  expectLogEndsWith(
      "Config::readConfig(): Cannot open Ostrel configuration file 'ot-config.txt'."
      "|loadConfig(): Unsupported window color 'yellow'|loadConfig(): Unsupported window style "
      "'fancy'|loadConfig(): Unsupported window state 'maximised'|" +
      dashes +
      "|Ostrel configuration:|  Window horizontal pixels: 1024|  Window vertical pixels: 768"
      "|  Window horizontal characters: 80|  Window vertical characters: 12"
      "|  Window background color: 0|  Frame time: 0|  Window style: 5|  Window state: default"
      "|  Window title: MyGame|  Show mouse: false|  Headless: true|  Font file: ot-font.ttf"
      "|  Log file: ostrel.log|  Random seed: 0|  Networking: true|  Scene graph: grid"
      "|  Grid width: 11|  Grid height: 5|" +
      dashes);
}
