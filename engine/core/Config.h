#pragma once

#include <string>

#include "engine/core/EventLabels.h"
#include "engine/core/Types.h"

namespace ot {

// Every engine setting with its default, filled once from the settings file
// (OSTREL_CONFIG, or ot-config.txt in the working directory) at the start of
// GameManager::startUp. A game may call setters before that; keys in the file
// then win. Not a manager: no started state and no events.
class Config {
 public:
  static Config& getInstance();

  // Parses config, or the settings file when config is empty. A missing file
  // or a bad value leaves the defaults.
  void loadConfig(std::string config);
  // The settings file's lines, comments and blank lines dropped, joined with nothing.
  std::string readConfig() const;
  // Writes the settings to the log at LOG_INFO.
  void print() const;
  // Puts every setting back to its default.
  void reset() { *this = Config(); }

  std::string getConfig() const { return m_config; }
  void setConfig(std::string config) { m_config = std::move(config); }
  int getWindowHorizontalPixels() const { return m_window_horizontal_pixels; }
  void setWindowHorizontalPixels(int value) { m_window_horizontal_pixels = value; }
  int getWindowVerticalPixels() const { return m_window_vertical_pixels; }
  void setWindowVerticalPixels(int value) { m_window_vertical_pixels = value; }
  int getWindowHorizontalChars() const { return m_window_horizontal_chars; }
  void setWindowHorizontalChars(int value) { m_window_horizontal_chars = value; }
  int getWindowVerticalChars() const { return m_window_vertical_chars; }
  void setWindowVerticalChars(int value) { m_window_vertical_chars = value; }
  int getWindowStyle() const { return m_window_style; }
  void setWindowStyle(int value) { m_window_style = value; }
  int getWindowState() const { return m_window_state; }
  void setWindowState(int value) { m_window_state = value; }
  Color getWindowBackgroundColor() const { return m_window_background_color; }
  void setWindowBackgroundColor(Color value) { m_window_background_color = value; }
  int getFrameTime() const { return m_frame_time; }
  void setFrameTime(int value) { m_frame_time = value; }
  float getFontScale() const { return m_font_scale; }
  void setFontScale(float value) { m_font_scale = value; }
  std::string getWindowTitle() const { return m_window_title; }
  void setWindowTitle(std::string value) { m_window_title = std::move(value); }
  bool getShowMouse() const { return m_show_mouse; }
  void setShowMouse(bool value) { m_show_mouse = value; }
  bool getHeadless() const { return m_headless; }
  void setHeadless(bool value) { m_headless = value; }
  std::string getFontFile() const { return m_font_file; }
  void setFontFile(std::string value) { m_font_file = std::move(value); }
  std::string getLogfile() const { return m_logfile; }
  void setLogfile(std::string value) { m_logfile = std::move(value); }
  int getRandomSeed() const { return m_random_seed; }
  void setRandomSeed(int value) { m_random_seed = value; }
  bool getNetworking() const { return m_networking; }
  void setNetworking(bool value) { m_networking = value; }
  int getQuadtreeThreshold() const { return m_quadtree_threshold; }
  void setQuadtreeThreshold(int value) { m_quadtree_threshold = value; }
  int getQuadtreeDepth() const { return m_quadtree_depth; }
  void setQuadtreeDepth(int value) { m_quadtree_depth = value; }
  int getGridWidth() const { return m_grid_width; }
  void setGridWidth(int value) { m_grid_width = value; }
  int getGridHeight() const { return m_grid_height; }
  void setGridHeight(int value) { m_grid_height = value; }
  bool getSignals() const { return m_signals; }
  void setSignals(bool value) { m_signals = value; }

 private:
  Config() = default;
  Config(const Config&) = default;
  Config& operator=(const Config&) = default;

  std::string m_config;  // the whole text as last parsed
  int m_window_horizontal_pixels = 1024;
  int m_window_vertical_pixels = 768;
  int m_window_horizontal_chars = 80;
  int m_window_vertical_chars = 24;
  int m_window_style = 5;  // title bar and close button
  int m_window_state = 0;  // 1 for fullscreen
  Color m_window_background_color = BLACK;
  int m_frame_time = 33;  // milliseconds
  float m_font_scale = 2.0f;
  std::string m_window_title = "Ostrel";
  bool m_show_mouse = false;
  bool m_headless = false;
  std::string m_font_file = FONT_FILENAME;
  std::string m_logfile = "ostrel.log";
  int m_random_seed = 0;  // 0: from the time; -1: leave unseeded
  bool m_networking = true;
  int m_quadtree_threshold = 1;  // read and kept; the scene graph is always a grid
  int m_quadtree_depth = 10;
  int m_grid_width = 20;  // size of one grid cell, in spaces
  int m_grid_height = 8;
  bool m_signals = true;
};

// FONT_FILENAME in the folder when it is there, else the system's copy: for
// demos, tools and tests that may run from anywhere.
std::string findFontFile(const std::string& folder = ".");

}  // namespace ot
