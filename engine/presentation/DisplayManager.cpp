#include "engine/presentation/DisplayManager.h"

#include <SFML/Graphics.hpp>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <new>
#include <vector>

#include "engine/core/Config.h"
#include "engine/core/LogManager.h"
#include "engine/platform/Platform.h"
#include "engine/world/Geometry.h"

namespace ot {

namespace {

// One of s + 1, s - 1, ... down to -s + 1.
// Kept quirk: lopsided by one step towards the positive side; games tuned their
// shakes by it.
// Departure: a severity of -1 would divide by zero; that axis (which shake()
// reports) stays still and draws no number.
int shakeOffset(int severity) {
  if (severity == -1) return 0;
  return (severity + 1) - (rand() % (severity + 1)) * 2;
}

// A character's quad as a text of that one character lays it out: edges from
// the text's position, and their place in the font's page. Blanks have no quad.
struct CellGlyph {
  bool looked_up = false;
  bool has_quad = false;
  float left = 0, top = 0, right = 0, bottom = 0;
  float u1 = 0, v1 = 0, u2 = 0, v2 = 0;
};

}  // namespace

struct DisplayManager::Canvas {
  sf::Font font;
  std::unique_ptr<sf::RenderWindow> p_window;  // null when headless or stopped
  sf::RectangleShape rectangle;                // the cell background
  sf::Text text;                               // the cell's character
  sf::Color background = sf::Color(0, 0, 0, 255);
  std::array<CellGlyph, 256> glyphs;  // by the char's byte, for the text's size
  std::vector<sf::Vertex> cells;      // recorded since the last flush

  const CellGlyph& cellGlyph(char ch);
  // Records the rectangle and the text as they stand, in pixels of the window.
  void recordCell(char ch, sf::Color color);
};

DisplayManager::DisplayManager() : m_p_canvas(std::make_unique<Canvas>()) { setType("DisplayManager"); }

DisplayManager& DisplayManager::getInstance() {
  static DisplayManager display_manager;
  return display_manager;
}

DisplayManager::~DisplayManager() = default;

int DisplayManager::startUp() {
  LogManager& log = LogManager::getInstance();
  if (refuseSecondStart()) return -1;
  Config& config = Config::getInstance();
  // First, so that the cell geometry answers in headless runs too.
  m_window_horizontal_pixels = config.getWindowHorizontalPixels();
  m_window_vertical_pixels = config.getWindowVerticalPixels();
  m_window_horizontal_chars = config.getWindowHorizontalChars();
  m_window_vertical_chars = config.getWindowVerticalChars();
  // A shake left from an earlier run of the engine in this process ends here.
  m_shake_duration = m_shake_severity_x = m_shake_severity_y = 0;
  m_shake_offset_x = m_shake_offset_y = 0;

  if (config.getHeadless()) {
    log.writeLog(LOG_INFO, "DisplayManager::startUp(): no graphics in headless mode.");
    Manager::startUp();
    log.writeLog(LOG_DETAIL, "DisplayManager::startUp(): successfully started.");
    return 0;
  }

  // Without a display the windowing library would end the process itself.
  if (!platform::displayAvailable()) {
    log.writeLog("DisplayManager::startUp(): Error! No display to open a window on (DISPLAY is not set).");
    return -1;
  }
  sf::VideoMode desktop = sf::VideoMode::getDesktopMode();
  log.writeLog(LOG_DETAIL, "DisplayManager::startUp(): window resolution (%d, %d) pixels.",
               static_cast<int>(desktop.width), static_cast<int>(desktop.height));
  if (m_window_horizontal_pixels == 0) m_window_horizontal_pixels = static_cast<int>(desktop.width);
  if (m_window_vertical_pixels == 0) m_window_vertical_pixels = static_cast<int>(desktop.height);

  // SFML 2.5 has no window state of its own: fullscreen is a style bit there.
  sf::Uint32 style = static_cast<sf::Uint32>(config.getWindowStyle());
  if (config.getWindowState() == 1) style |= sf::Style::Fullscreen;
  Canvas& canvas = *m_p_canvas;
  canvas.p_window.reset(new (std::nothrow) sf::RenderWindow(
      sf::VideoMode(static_cast<unsigned int>(m_window_horizontal_pixels),
                    static_cast<unsigned int>(m_window_vertical_pixels), 32),
      config.getWindowTitle(), style, sf::ContextSettings()));
  if (!canvas.p_window) {
    log.writeLog("DisplayManager::startUp(): Unable to allocate window!");
    return -1;
  }
  canvas.p_window->setMouseCursorVisible(config.getShowMouse());
  canvas.p_window->setVerticalSyncEnabled(true);

  // A failed start closes the window again and leaves nothing open.
  if (!canvas.font.loadFromFile(config.getFontFile())) {
    log.writeLog("DisplayManager::startUp(): Error! Unable to open font from file '%s'.",
                 config.getFontFile().c_str());
    release();
    return -1;
  }
  makeRectangle();
  canvas.text = sf::Text("", canvas.font, 30);
  canvas.text.setStyle(sf::Text::Bold);
  canvas.text.setCharacterSize(cellFontSize());
  // A text loads these two first, for its lines and spaces. Loaded so here,
  // the page holds each glyph where the text would have put it, and a glyph
  // sampled between texels shades as it did.
  canvas.font.getGlyph(L'x', canvas.text.getCharacterSize(), true);
  canvas.font.getGlyph(L' ', canvas.text.getCharacterSize(), true);
  setBackgroundColor(config.getWindowBackgroundColor());

  Manager::startUp();
  log.writeLog(LOG_DETAIL, "DisplayManager::startUp(): successfully started.");
  return 0;
}

void DisplayManager::shutDown() {
  release();
  Manager::shutDown();
  LogManager::getInstance().writeLog(LOG_DETAIL, "DisplayManager::shutDown(): successfully stopped.");
}

int DisplayManager::drawCh(Vector world_pos, char ch, Color color, float rotation) const {
  if (Config::getInstance().getHeadless()) return -1;
  // CUSTOM leaves the channels to the caller; white is what an unset colour shows.
  unsigned char r = 255, g = 255, b = 255;
  colorToRGB(color, r, g, b);
  return drawCh(world_pos, ch, r, g, b, rotation);
}

int DisplayManager::drawCh(Vector world_pos, char ch, unsigned char r, unsigned char g, unsigned char b,
                           float rotation) const {
  if (refuseUntilStarted()) return -1;
  Canvas& canvas = *m_p_canvas;
  if (Config::getInstance().getHeadless() || !canvas.p_window) return -1;
  Vector pixel_pos = spacesToPixels(worldToView(world_pos));

  // The rectangle bears the background colour, so a character wipes its own
  // cell: that is how higher altitudes hide what is behind them. It never shakes.
  canvas.rectangle.setPosition(pixel_pos.getX() - charWidth() / 10, pixel_pos.getY() + charHeight() / 5);
  canvas.rectangle.setRotation(rotation);
  canvas.text.setPosition(pixel_pos.getX() + static_cast<float>(m_shake_offset_x),
                          pixel_pos.getY() + static_cast<float>(m_shake_offset_y));
  canvas.text.setRotation(rotation);
  sf::Color color(r, g, b, 255);
  // Corners turned here rather than by the graphics card land a hair apart
  // and shade some pixels one step differently: a turned cell is drawn on its
  // own, after what is recorded. (The setter has brought 360 to 0.)
  if (canvas.rectangle.getRotation() == 0.0f) {
    canvas.recordCell(ch, color);
    return 0;
  }
  flushCells();
  canvas.p_window->draw(canvas.rectangle, sf::RenderStates::Default);
  canvas.text.setString(sf::String(std::string(1, ch)));
  canvas.text.setFillColor(color);
  canvas.p_window->draw(canvas.text, sf::RenderStates::Default);
  return 0;
}

int DisplayManager::drawString(Vector world_pos, std::string str, Justification just, Color color) const {
  if (refuseUntilStarted()) return -1;
  if (Config::getInstance().getHeadless()) return -1;
  Vector starting_pos = world_pos;
  int length = static_cast<int>(str.size());
  // Whole cells: an odd length leans one cell right.
  if (just == CENTER_JUSTIFIED)
    starting_pos.setX(world_pos.getX() -
                      static_cast<float>(length / 2));  // NOLINT(bugprone-integer-division)
  if (just == RIGHT_JUSTIFIED) starting_pos.setX(world_pos.getX() - static_cast<float>(length));
  for (int i = 0; i < length; i++) {
    drawCh(Vector(starting_pos.getX() + static_cast<float>(i), starting_pos.getY()), str[i], color, 0);
  }
  return 0;
}

int DisplayManager::swapBuffers() {
  if (refuseUntilStarted()) return -1;
  sf::RenderWindow* p_window = m_p_canvas->p_window.get();
  if (Config::getInstance().getHeadless() || !p_window) return -1;
  flushCells();
  p_window->display();
  p_window->clear(m_p_canvas->background);
  if (m_shake_duration < 1) {
    m_shake_offset_x = 0;
    m_shake_offset_y = 0;
  } else {
    m_shake_offset_x = shakeOffset(m_shake_severity_x);
    m_shake_offset_y = shakeOffset(m_shake_severity_y);
    m_shake_duration = std::max(m_shake_duration - 1, 0);
  }
  return 0;
}

int DisplayManager::saveScreenshot(const std::string& filename) const {
  const sf::RenderWindow* p_window = m_p_canvas->p_window.get();
  if (!p_window) return -1;
  flushCells();
  // The back buffer, not the shown frame: this is what the next swap shows.
  sf::Texture texture;
  if (!texture.create(p_window->getSize().x, p_window->getSize().y)) return -1;
  texture.update(*p_window);
  if (!texture.copyToImage().saveToFile(filename)) {
    LogManager::getInstance().writeLog("DisplayManager::saveScreenshot(): Error! Unable to write '%s'.",
                                       filename.c_str());
    return -1;
  }
  return 0;
}

bool DisplayManager::setBackgroundColor(Color color) {
  if (Config::getInstance().getHeadless()) return false;
  m_p_canvas->background = colorToSFML(color);
  m_p_canvas->rectangle.setFillColor(m_p_canvas->background);
  return true;
}

sf::RenderWindow* DisplayManager::getWindow() const {
  flushCells();
  return m_p_canvas->p_window.get();
}

void DisplayManager::release() {
  Canvas& canvas = *m_p_canvas;
  // A new font lays its page out anew.
  canvas.cells.clear();
  canvas.glyphs = {};
  if (canvas.p_window) canvas.p_window->close();
  canvas.p_window.reset();
}

void DisplayManager::makeRectangle() {
  m_p_canvas->rectangle = sf::RectangleShape(sf::Vector2f(charWidth(), charHeight()));
  m_p_canvas->rectangle.setFillColor(m_p_canvas->background);
}

void DisplayManager::setHorizontalChars(int chars) {
  m_window_horizontal_chars = chars;
  makeRectangle();
}

void DisplayManager::setVerticalChars(int chars) {
  m_window_vertical_chars = chars;
  makeRectangle();
}

void DisplayManager::shake(int severity_x, int severity_y, int duration, bool additive) {
  if (additive) {
    m_shake_severity_x += severity_x;
    m_shake_severity_y += severity_y;
    m_shake_duration += duration;
  } else {
    m_shake_severity_x = severity_x;
    m_shake_severity_y = severity_y;
    m_shake_duration = duration;
  }
  if (m_shake_severity_x == -1 || m_shake_severity_y == -1) {
    LogManager::getInstance().writeLog(
        "DisplayManager::shake(): Warning! severity (%d, %d) of -1; that axis won't shake.",
        m_shake_severity_x, m_shake_severity_y);
  }
}

const CellGlyph& DisplayManager::Canvas::cellGlyph(char ch) {
  CellGlyph& cell = glyphs[static_cast<unsigned char>(ch)];
  if (cell.looked_up) return cell;
  cell.looked_up = true;
  // The text's own conversion, under the default locale, and its blanks.
  sf::String string(std::string(1, ch));
  if (string.isEmpty()) return cell;
  sf::Uint32 code = string[0];
  if (code == L' ' || code == L'\n' || code == L'\t' || code == L'\r') return cell;
  const sf::Glyph& glyph = font.getGlyph(code, text.getCharacterSize(), true);
  // The text widens each quad by a pixel all round, on the screen and in the
  // page, and stands it on a baseline one character size down; the sums are
  // made in its order, so that the corners come out the same to the bit.
  const float pad = 1.0f, baseline = static_cast<float>(text.getCharacterSize());
  const sf::FloatRect& b = glyph.bounds;
  const sf::IntRect& t = glyph.textureRect;
  cell.has_quad = true;
  cell.left = b.left - pad;
  cell.top = baseline + (b.top - pad);
  cell.right = b.left + b.width + pad;
  cell.bottom = baseline + (b.top + b.height + pad);
  cell.u1 = static_cast<float>(t.left) - pad;
  cell.v1 = static_cast<float>(t.top) - pad;
  cell.u2 = static_cast<float>(t.left + t.width) + pad;
  cell.v2 = static_cast<float>(t.top + t.height) + pad;
  return cell;
}

void DisplayManager::Canvas::recordCell(char ch, sf::Color color) {
  // Two triangles a quad, in the text's own order, moved by offset (unturned,
  // the objects' transforms are only that).
  auto quad = [this](sf::Vector2f offset, float left, float top, float right, float bottom, sf::Color tint,
                     sf::Vector2f uv1, sf::Vector2f uv2) {
    sf::Vertex top_left(offset + sf::Vector2f(left, top), tint, uv1);
    sf::Vertex top_right(offset + sf::Vector2f(right, top), tint, {uv2.x, uv1.y});
    sf::Vertex bottom_left(offset + sf::Vector2f(left, bottom), tint, {uv1.x, uv2.y});
    sf::Vertex bottom_right(offset + sf::Vector2f(right, bottom), tint, uv2);
    cells.insert(cells.end(), {top_left, top_right, bottom_left, bottom_left, top_right, bottom_right});
  };
  // The rectangle samples the middle of the white square the font keeps at
  // the top left of its page, which leaves its colour as it is.
  sf::Vector2f size = rectangle.getSize();
  quad(rectangle.getPosition(), 0, 0, size.x, size.y, rectangle.getFillColor(), {1, 1}, {1, 1});
  const CellGlyph& glyph = cellGlyph(ch);
  if (glyph.has_quad) {
    quad(text.getPosition(), glyph.left, glyph.top, glyph.right, glyph.bottom, color, {glyph.u1, glyph.v1},
         {glyph.u2, glyph.v2});
  }
}

void DisplayManager::flushCells() const {
  Canvas& canvas = *m_p_canvas;
  if (canvas.cells.empty() || !canvas.p_window) return;
  sf::RenderStates states(&canvas.font.getTexture(canvas.text.getCharacterSize()));
  canvas.p_window->draw(canvas.cells.data(), canvas.cells.size(), sf::Triangles, states);
  canvas.cells.clear();
}

unsigned int DisplayManager::cellFontSize() const {
  // When the sides are equal the height is the one taken; the value is the same.
  float cell = std::min(charHeight(), charWidth());
  float size = cell * Config::getInstance().getFontScale();
  // A cell count of 0 makes the side infinite or not a number: no size to cut.
  if (!(size >= 0.0f && size < 65536.0f)) return 0;
  return static_cast<unsigned int>(size);
}

float charHeight() {
  const DisplayManager& display = DisplayManager::getInstance();
  return static_cast<float>(display.getVerticalPixels()) / static_cast<float>(display.getVerticalChars());
}

float charWidth() {
  const DisplayManager& display = DisplayManager::getInstance();
  return static_cast<float>(display.getHorizontalPixels()) / static_cast<float>(display.getHorizontalChars());
}

Vector spacesToPixels(Vector spaces) {
  Vector pixels(spaces.getX() * charWidth(), spaces.getY() * charHeight());
  LogManager::getInstance().writeLog(LOG_PIXELS,
                                     "spacesToPixels(int): spaces (%.2f,%.2f) = pixels (%.2f,%.2f)",
                                     spaces.getX(), spaces.getY(), pixels.getX(), pixels.getY());
  return pixels;
}

Vector pixelsToSpaces(Vector pixels) {
  Vector spaces(pixels.getX() / charWidth(), pixels.getY() / charHeight());
  LogManager::getInstance().writeLog(LOG_PIXELS, "pixelsToSpaces(): pixels (%.2f,%.2f) = spaces (%.2f,%.2f)",
                                     pixels.getX(), pixels.getY(), spaces.getX(), spaces.getY());
  return spaces;
}

sf::Color colorToSFML(Color color) {
  unsigned char r = 255, g = 255, b = 255;
  switch (color) {
    case BLACK:
    case RED:
    case GREEN:
    case YELLOW:
    case BLUE:
    case MAGENTA:
    case CYAN:
    case WHITE: colorToRGB(color, r, g, b); return sf::Color(r, g, b, 255);
    case CUSTOM:
      LogManager::getInstance().writeLog(LOG_DETAIL, "colorToSFML(): Color is CUSTOM.");
      return sf::Color::White;
    default:
      LogManager::getInstance().writeLog(LOG_DETAIL, "colorToSFML(): Color %d not supported.", color);
      return sf::Color::White;
  }
}

void colorToRGB(Color color, unsigned char& r, unsigned char& g, unsigned char& b) {
  switch (color) {
    case BLACK:
      r = 0;
      g = 0;
      b = 0;
      return;
    case RED:
      r = 255;
      g = 0;
      b = 0;
      return;
    case GREEN:
      r = 0;
      g = 255;
      b = 0;
      return;
    case YELLOW:
      r = 255;
      g = 255;
      b = 0;
      return;
    case BLUE:
      r = 0;
      g = 0;
      b = 255;
      return;
    case MAGENTA:
      r = 255;
      g = 0;
      b = 255;
      return;
    case CYAN:
      r = 0;
      g = 255;
      b = 255;
      return;
    case WHITE:
      r = 255;
      g = 255;
      b = 255;
      return;
    case CUSTOM: return;  // the caller's channels stand
    default:
      LogManager::getInstance().writeLog(LOG_DETAIL, "colorToRGB(): Color %d not supported.", color);
      return;
  }
}

}  // namespace ot
