#include "engine/presentation/DisplayManager.h"

#include <algorithm>
#include <cstdlib>
#include <new>

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

}  // namespace

DisplayManager::DisplayManager() { setType("DisplayManager"); }

DisplayManager& DisplayManager::getInstance() {
  static DisplayManager display_manager;
  return display_manager;
}

DisplayManager::~DisplayManager() {
  delete m_p_window;
  delete m_p_text;
  delete m_p_rectangle;
}

int DisplayManager::startUp() {
  LogManager& log = LogManager::getInstance();
  if (isStarted()) {
    log.writeLog("%s::startup(): Warning! %s already started.", getType().c_str(), getType().c_str());
    return -1;
  }
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
    log.writeLog(1, "DisplayManager::startUp(): no graphics in headless mode.");
    Manager::startUp();
    log.writeLog(5, "DisplayManager::startUp(): successfully started.");
    return 0;
  }

  // Without a display the windowing library would end the process itself.
  if (!platform::displayAvailable()) {
    log.writeLog("DisplayManager::startUp(): Error! No display to open a window on (DISPLAY is not set).");
    return -1;
  }
  sf::VideoMode desktop = sf::VideoMode::getDesktopMode();
  log.writeLog(5, "DisplayManager::startUp(): window resolution (%d, %d) pixels.",
               static_cast<int>(desktop.width), static_cast<int>(desktop.height));
  if (m_window_horizontal_pixels == 0) m_window_horizontal_pixels = static_cast<int>(desktop.width);
  if (m_window_vertical_pixels == 0) m_window_vertical_pixels = static_cast<int>(desktop.height);

  // SFML 2.5 has no window state of its own: fullscreen is a style bit there.
  sf::Uint32 style = static_cast<sf::Uint32>(config.getWindowStyle());
  if (config.getWindowState() == 1) style |= sf::Style::Fullscreen;
  m_p_window = new (std::nothrow)
      sf::RenderWindow(sf::VideoMode(static_cast<unsigned int>(m_window_horizontal_pixels),
                                     static_cast<unsigned int>(m_window_vertical_pixels), 32),
                       config.getWindowTitle(), style, sf::ContextSettings());
  if (!m_p_window) {
    log.writeLog("DisplayManager::startUp(): Unable to allocate window!");
    return -1;
  }
  m_p_window->setMouseCursorVisible(config.getShowMouse());
  m_p_window->setVerticalSyncEnabled(true);

  // Each failure below closes the window again: a failed start leaves nothing open.
  if (!m_font.loadFromFile(config.getFontFile())) {
    log.writeLog("DisplayManager::startUp(): Error! Unable to open font from file '%s'.",
                 config.getFontFile().c_str());
    release();
    return -1;
  }
  m_p_rectangle = new (std::nothrow) sf::RectangleShape(sf::Vector2f(charWidth(), charHeight()));
  if (!m_p_rectangle) {
    log.writeLog("DisplayManager::startUp(): Error! Unable to allocate rectangle.");
    release();
    return -1;
  }
  m_p_text = new (std::nothrow) sf::Text("", m_font, 30);
  if (!m_p_text) {
    log.writeLog("DisplayManager::startUp(): Error! Unable to allocate text.");
    release();
    return -1;
  }
  m_p_text->setFont(m_font);
  m_p_text->setStyle(sf::Text::Bold);
  m_p_text->setCharacterSize(cellFontSize());
  // A text loads these two first, for its lines and spaces. Loaded so here,
  // the page holds each glyph where the text would have put it, and a glyph
  // sampled between texels shades as it did.
  m_font.getGlyph(L'x', m_p_text->getCharacterSize(), true);
  m_font.getGlyph(L' ', m_p_text->getCharacterSize(), true);
  setBackgroundColor(config.getWindowBackgroundColor());

  Manager::startUp();
  log.writeLog(5, "DisplayManager::startUp(): successfully started.");
  return 0;
}

void DisplayManager::shutDown() {
  release();
  Manager::shutDown();
  LogManager::getInstance().writeLog(5, "DisplayManager::shutDown(): successfully stopped.");
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
  if (!isStarted()) {
    LogManager::getInstance().writeLog("%s not started!", getType().c_str());
    return -1;
  }
  if (Config::getInstance().getHeadless() || !m_p_window) return -1;
  Vector pixel_pos = spacesToPixels(worldToView(world_pos));

  // The rectangle bears the background colour, so a character wipes its own
  // cell: that is how higher altitudes hide what is behind them. It never shakes.
  m_p_rectangle->setPosition(pixel_pos.getX() - charWidth() / 10, pixel_pos.getY() + charHeight() / 5);
  m_p_rectangle->setRotation(rotation);
  m_p_text->setPosition(pixel_pos.getX() + static_cast<float>(m_shake_offset_x),
                        pixel_pos.getY() + static_cast<float>(m_shake_offset_y));
  m_p_text->setRotation(rotation);
  sf::Color color(r, g, b, 255);
  // Corners turned here rather than by the graphics card land a hair apart
  // and shade some pixels one step differently: a turned cell is drawn on its
  // own, after what is recorded. (The setter has brought 360 to 0.)
  if (m_p_rectangle->getRotation() == 0.0f) {
    recordCell(ch, color);
    return 0;
  }
  flushCells();
  m_p_window->draw(*m_p_rectangle, sf::RenderStates::Default);
  m_p_text->setString(sf::String(std::string(1, ch)));
  m_p_text->setFillColor(color);
  m_p_window->draw(*m_p_text, sf::RenderStates::Default);
  return 0;
}

int DisplayManager::drawString(Vector world_pos, std::string str, Justification just, Color color) const {
  if (!isStarted()) {
    LogManager::getInstance().writeLog("%s not started!", getType().c_str());
    return -1;
  }
  if (Config::getInstance().getHeadless()) return -1;
  Vector starting_pos = world_pos;
  int length = static_cast<int>(str.size());
  if (just == CENTER_JUSTIFIED) starting_pos.setX(world_pos.getX() - static_cast<float>(length / 2));
  if (just == RIGHT_JUSTIFIED) starting_pos.setX(world_pos.getX() - static_cast<float>(length));
  for (int i = 0; i < length; i++) {
    drawCh(Vector(starting_pos.getX() + static_cast<float>(i), starting_pos.getY()), str[i], color, 0);
  }
  return 0;
}

int DisplayManager::swapBuffers() {
  if (!isStarted()) {
    LogManager::getInstance().writeLog("%s not started!", getType().c_str());
    return -1;
  }
  if (Config::getInstance().getHeadless() || !m_p_window) return -1;
  flushCells();
  m_p_window->display();
  m_p_window->clear(m_window_background_color);
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

int DisplayManager::saveScreenshot(std::string filename) const {
  if (!m_p_window) return -1;
  flushCells();
  // The back buffer, not the shown frame: this is what the next swap shows.
  sf::Texture texture;
  if (!texture.create(m_p_window->getSize().x, m_p_window->getSize().y)) return -1;
  texture.update(*m_p_window);
  if (!texture.copyToImage().saveToFile(filename)) {
    LogManager::getInstance().writeLog("DisplayManager::saveScreenshot(): Error! Unable to write '%s'.",
                                       filename.c_str());
    return -1;
  }
  return 0;
}

bool DisplayManager::setBackgroundColor(Color color) {
  if (Config::getInstance().getHeadless()) return false;
  m_window_background_color = colorToSFML(color);
  if (m_p_rectangle) m_p_rectangle->setFillColor(m_window_background_color);
  return true;
}

sf::RenderWindow* DisplayManager::getWindow() const {
  flushCells();
  return m_p_window;
}

void DisplayManager::release() {
  // A new font lays its page out anew.
  m_cells.clear();
  m_glyphs = {};
  if (m_p_window) {
    m_p_window->close();
    delete m_p_window;
    m_p_window = nullptr;
  }
  delete m_p_text;
  m_p_text = nullptr;
  delete m_p_rectangle;
  m_p_rectangle = nullptr;
}

void DisplayManager::makeRectangle() {
  delete m_p_rectangle;
  m_p_rectangle = new (std::nothrow) sf::RectangleShape(sf::Vector2f(charWidth(), charHeight()));
  if (m_p_rectangle) m_p_rectangle->setFillColor(m_window_background_color);
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

const DisplayManager::CellGlyph& DisplayManager::cellGlyph(char ch) const {
  CellGlyph& cell = m_glyphs[static_cast<unsigned char>(ch)];
  if (cell.looked_up) return cell;
  cell.looked_up = true;
  // The text's own conversion, under the default locale, and its blanks.
  sf::String string(std::string(1, ch));
  if (string.isEmpty()) return cell;
  sf::Uint32 code = string[0];
  if (code == L' ' || code == L'\n' || code == L'\t' || code == L'\r') return cell;
  const sf::Glyph& glyph = m_font.getGlyph(code, m_p_text->getCharacterSize(), true);
  // The text widens each quad by a pixel all round, on the screen and in the
  // page, and stands it on a baseline one character size down; the sums are
  // made in its order, so that the corners come out the same to the bit.
  const float pad = 1.0f, baseline = static_cast<float>(m_p_text->getCharacterSize());
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

void DisplayManager::recordCell(char ch, sf::Color color) const {
  // Two triangles a quad, in the text's own order, moved by offset (unturned,
  // the objects' transforms are only that).
  auto quad = [this](sf::Vector2f offset, float left, float top, float right, float bottom, sf::Color tint,
                     sf::Vector2f uv1, sf::Vector2f uv2) {
    sf::Vertex top_left(offset + sf::Vector2f(left, top), tint, uv1);
    sf::Vertex top_right(offset + sf::Vector2f(right, top), tint, {uv2.x, uv1.y});
    sf::Vertex bottom_left(offset + sf::Vector2f(left, bottom), tint, {uv1.x, uv2.y});
    sf::Vertex bottom_right(offset + sf::Vector2f(right, bottom), tint, uv2);
    m_cells.insert(m_cells.end(), {top_left, top_right, bottom_left, bottom_left, top_right, bottom_right});
  };
  // The rectangle samples the middle of the white square the font keeps at
  // the top left of its page, which leaves its colour as it is.
  sf::Vector2f size = m_p_rectangle->getSize();
  quad(m_p_rectangle->getPosition(), 0, 0, size.x, size.y, m_p_rectangle->getFillColor(), {1, 1}, {1, 1});
  const CellGlyph& glyph = cellGlyph(ch);
  if (glyph.has_quad) {
    quad(m_p_text->getPosition(), glyph.left, glyph.top, glyph.right, glyph.bottom, color,
         {glyph.u1, glyph.v1}, {glyph.u2, glyph.v2});
  }
}

void DisplayManager::flushCells() const {
  if (m_cells.empty() || !m_p_window) return;
  sf::RenderStates states(&m_font.getTexture(m_p_text->getCharacterSize()));
  m_p_window->draw(m_cells.data(), m_cells.size(), sf::Triangles, states);
  m_cells.clear();
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
  LogManager::getInstance().writeLog(30, "spacesToPixels(int): spaces (%.2f,%.2f) = pixels (%.2f,%.2f)",
                                     spaces.getX(), spaces.getY(), pixels.getX(), pixels.getY());
  return pixels;
}

Vector pixelsToSpaces(Vector pixels) {
  Vector spaces(pixels.getX() / charWidth(), pixels.getY() / charHeight());
  LogManager::getInstance().writeLog(30, "pixelsToSpaces(): pixels (%.2f,%.2f) = spaces (%.2f,%.2f)",
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
      LogManager::getInstance().writeLog(5, "colorToSFML(): Color is CUSTOM.");
      return sf::Color::White;
    default:
      LogManager::getInstance().writeLog(5, "colorToSFML(): Color %d not supported.", color);
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
    default: LogManager::getInstance().writeLog(5, "colorToRGB(): Color %d not supported.", color); return;
  }
}

}  // namespace ot
