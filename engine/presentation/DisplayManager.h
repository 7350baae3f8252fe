#pragma once

#include <memory>
#include <string>

#include "engine/core/Manager.h"
#include "engine/core/Types.h"
#include "engine/core/Vector.h"

namespace sf {
class Color;
class RenderWindow;
}  // namespace sf

namespace ot {

enum Justification {
  LEFT_JUSTIFIED = 0,
  CENTER_JUSTIFIED,
  RIGHT_JUSTIFIED,
};

// Owns the window and turns the character-cell world into pixels. A cell is
// the window divided by the cell counts, so its sides need not be equal or
// whole. Each character is a background rectangle (which wipes what lay
// below) and one glyph.
// Departure: characters are recorded, in call order, into one
// vertex array on the font's page and drawn in a single call when the frame is
// shown or anything else is about to touch the window (see getWindow). With
// headless set there is no window: drawing returns -1 and the geometry still
// answers.
//
//   DisplayManager& display = DisplayManager::getInstance();
//   display.drawString(Vector(40, 12), "Game Over", CENTER_JUSTIFIED, RED);
//   display.swapBuffers();  // once a frame, by the game loop
class DisplayManager : public Manager {
 public:
  static DisplayManager& getInstance();

  ~DisplayManager() override;
  // Opens the window and font from the configuration; -1 on failure.
  int startUp() override;
  void shutDown() override;

  // Draws one character at a world position; -1 when headless or not started.
  int drawCh(Vector world_pos, char ch, Color color, float rotation = 0.0f) const;
  // The worker of the colour form, for any r, g, b.
  int drawCh(Vector world_pos, char ch, unsigned char r, unsigned char g, unsigned char b,
             float rotation = 0.0f) const;
  // Draws a string one cell a character, justified about world_pos.
  int drawString(Vector world_pos, std::string str, Justification just, Color color) const;
  // Shows what was drawn and clears for the next frame, shaking if asked.
  int swapBuffers();
  // False when headless.
  bool setBackgroundColor(Color color);
  void setHorizontalChars(int chars);
  void setVerticalChars(int chars);
  // Shakes the characters (not their backgrounds) for duration frames, from
  // the next swapBuffers on; additive adds to a running shake.
  void shake(int severity_x, int severity_y, int duration, bool additive = false);
  // The character size the text gets: the smaller cell side times font_scale.
  unsigned int cellFontSize() const;

  int getHorizontalChars() const { return m_window_horizontal_chars; }
  int getVerticalChars() const { return m_window_vertical_chars; }
  int getHorizontalPixels() const { return m_window_horizontal_pixels; }
  int getVerticalPixels() const { return m_window_vertical_pixels; }
  // Saves what has been drawn since the last swap as an image file (its
  // format by the name's ending); -1 without a window or when it can't be written.
  int saveScreenshot(const std::string& filename) const;
  // Null when headless or not started. Draws the characters recorded so far
  // first, so that whatever the caller then draws or reads comes after them,
  // as if every character had been drawn at once: fetch it anew for each use
  // rather than keeping the pointer across drawCh calls.
  sf::RenderWindow* getWindow() const;
  int getShakeOffsetX() const { return m_shake_offset_x; }
  int getShakeOffsetY() const { return m_shake_offset_y; }
  int getShakeDuration() const { return m_shake_duration; }
  int getShakeSeverityX() const { return m_shake_severity_x; }
  int getShakeSeverityY() const { return m_shake_severity_y; }

 private:
  DisplayManager();

  // The window, its font, the cell's rectangle and text, and the characters
  // recorded since the last flush; kept out of this header so that a game's
  // sources don't all compile the graphics library.
  struct Canvas;

  // Closes the window and forgets the laid-out glyphs.
  void release();
  // A rectangle of the present cell size in the background colour.
  void makeRectangle();
  // Draws the recorded characters in one call and empties the record.
  void flushCells() const;

  std::unique_ptr<Canvas> m_p_canvas;  // always there; its window only while started with one
  int m_window_horizontal_pixels = 0;
  int m_window_vertical_pixels = 0;
  int m_window_horizontal_chars = 0;
  int m_window_vertical_chars = 0;
  int m_shake_duration = 0;    // frames left
  int m_shake_severity_x = 0;  // pixels
  int m_shake_severity_y = 0;
  int m_shake_offset_x = 0;
  int m_shake_offset_y = 0;
};

// Size of one cell in pixels.
float charHeight();
float charWidth();
// Conversions between spaces and window pixels, each logged at LOG_PIXELS.
Vector spacesToPixels(Vector spaces);
Vector pixelsToSpaces(Vector pixels);
// Opaque SFML colour of a named colour; white for CUSTOM and unknown values.
sf::Color colorToSFML(Color color);
// The channels of a named colour; leaves them as they were for CUSTOM and
// unknown values.
void colorToRGB(Color color, unsigned char& r, unsigned char& g, unsigned char& b);

}  // namespace ot
