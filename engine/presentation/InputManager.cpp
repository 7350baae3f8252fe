#include "engine/presentation/InputManager.h"

#include <SFML/Graphics.hpp>

#include "engine/core/Config.h"
#include "engine/core/EventKeyboard.h"
#include "engine/core/EventMouse.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/presentation/DisplayManager.h"

namespace ot {

namespace {

struct KeyEntry {
  sf::Keyboard::Key sfml;
  Keyboard::Key key;
  const char* text;  // what keyToString answers
  const char* name;  // how the log names the SFML key
};

// Every SFML key that has an engine code; any other SFML key has none. SFML
// 2.5.1 still calls the grave and apostrophe keys Tilde and Quote.
const KeyEntry KEYS[] = {
    {sf::Keyboard::Space, Keyboard::SPACE, " ", "Space"},
    {sf::Keyboard::Enter, Keyboard::RETURN, "", "Enter"},
    {sf::Keyboard::Escape, Keyboard::ESCAPE, "", "Escape"},
    {sf::Keyboard::Tab, Keyboard::TAB, "", "Tab"},
    {sf::Keyboard::Left, Keyboard::LEFTARROW, "", "Left"},
    {sf::Keyboard::Right, Keyboard::RIGHTARROW, "", "Right"},
    {sf::Keyboard::Up, Keyboard::UPARROW, "", "Up"},
    {sf::Keyboard::Down, Keyboard::DOWNARROW, "", "Down"},
    {sf::Keyboard::Pause, Keyboard::PAUSE, "", "Pause"},
    {sf::Keyboard::Subtract, Keyboard::MINUS, "-", "Subtract"},
    {sf::Keyboard::Add, Keyboard::PLUS, "+", "Add"},
    {sf::Keyboard::Tilde, Keyboard::TILDE, "~", "Tilde"},
    {sf::Keyboard::Period, Keyboard::PERIOD, ".", "Period"},
    {sf::Keyboard::Comma, Keyboard::COMMA, ",", "Comma"},
    {sf::Keyboard::Slash, Keyboard::SLASH, "/", "Slash"},
    {sf::Keyboard::Equal, Keyboard::EQUAL, "=", "Equal"},
    {sf::Keyboard::Backslash, Keyboard::BACKSLASH, "\\", "Backslash"},
    {sf::Keyboard::Multiply, Keyboard::MULTIPLY, "*", "Multiply"},
    {sf::Keyboard::Quote, Keyboard::QUOTE, "'", "Quote"},
    {sf::Keyboard::Semicolon, Keyboard::SEMICOLON, ";", "Semicolon"},
    {sf::Keyboard::LControl, Keyboard::LEFTCONTROL, "", "LControl"},
    {sf::Keyboard::RControl, Keyboard::RIGHTCONTROL, "", "RControl"},
    {sf::Keyboard::LShift, Keyboard::LEFTSHIFT, "", "LShift"},
    {sf::Keyboard::RShift, Keyboard::RIGHTSHIFT, "", "RShift"},
    {sf::Keyboard::F1, Keyboard::F1, "", "F1"},
    {sf::Keyboard::F2, Keyboard::F2, "", "F2"},
    {sf::Keyboard::F3, Keyboard::F3, "", "F3"},
    {sf::Keyboard::F4, Keyboard::F4, "", "F4"},
    {sf::Keyboard::F5, Keyboard::F5, "", "F5"},
    {sf::Keyboard::F6, Keyboard::F6, "", "F6"},
    {sf::Keyboard::F7, Keyboard::F7, "", "F7"},
    {sf::Keyboard::F8, Keyboard::F8, "", "F8"},
    {sf::Keyboard::F9, Keyboard::F9, "", "F9"},
    {sf::Keyboard::F10, Keyboard::F10, "", "F10"},
    {sf::Keyboard::F11, Keyboard::F11, "", "F11"},
    {sf::Keyboard::F12, Keyboard::F12, "", "F12"},
    {sf::Keyboard::A, Keyboard::A, "A", "A"},
    {sf::Keyboard::B, Keyboard::B, "B", "B"},
    {sf::Keyboard::C, Keyboard::C, "C", "C"},
    {sf::Keyboard::D, Keyboard::D, "D", "D"},
    {sf::Keyboard::E, Keyboard::E, "E", "E"},
    {sf::Keyboard::F, Keyboard::F, "F", "F"},
    {sf::Keyboard::G, Keyboard::G, "G", "G"},
    {sf::Keyboard::H, Keyboard::H, "H", "H"},
    {sf::Keyboard::I, Keyboard::I, "I", "I"},
    {sf::Keyboard::J, Keyboard::J, "J", "J"},
    {sf::Keyboard::K, Keyboard::K, "K", "K"},
    {sf::Keyboard::L, Keyboard::L, "L", "L"},
    {sf::Keyboard::M, Keyboard::M, "M", "M"},
    {sf::Keyboard::N, Keyboard::N, "N", "N"},
    {sf::Keyboard::O, Keyboard::O, "O", "O"},
    {sf::Keyboard::P, Keyboard::P, "P", "P"},
    {sf::Keyboard::Q, Keyboard::Q, "Q", "Q"},
    {sf::Keyboard::R, Keyboard::R, "R", "R"},
    {sf::Keyboard::S, Keyboard::S, "S", "S"},
    {sf::Keyboard::T, Keyboard::T, "T", "T"},
    {sf::Keyboard::U, Keyboard::U, "U", "U"},
    {sf::Keyboard::V, Keyboard::V, "V", "V"},
    {sf::Keyboard::W, Keyboard::W, "W", "W"},
    {sf::Keyboard::X, Keyboard::X, "X", "X"},
    {sf::Keyboard::Y, Keyboard::Y, "Y", "Y"},
    {sf::Keyboard::Z, Keyboard::Z, "Z", "Z"},
    {sf::Keyboard::Num1, Keyboard::NUM1, "1", "Num1"},
    {sf::Keyboard::Num2, Keyboard::NUM2, "2", "Num2"},
    {sf::Keyboard::Num3, Keyboard::NUM3, "3", "Num3"},
    {sf::Keyboard::Num4, Keyboard::NUM4, "4", "Num4"},
    {sf::Keyboard::Num5, Keyboard::NUM5, "5", "Num5"},
    {sf::Keyboard::Num6, Keyboard::NUM6, "6", "Num6"},
    {sf::Keyboard::Num7, Keyboard::NUM7, "7", "Num7"},
    {sf::Keyboard::Num8, Keyboard::NUM8, "8", "Num8"},
    {sf::Keyboard::Num9, Keyboard::NUM9, "9", "Num9"},
    {sf::Keyboard::Num0, Keyboard::NUM0, "0", "Num0"},
    {sf::Keyboard::Backspace, Keyboard::BACKSPACE, "", "Backspace"},
    {sf::Keyboard::LBracket, Keyboard::LEFTBRACKET, "[", "LBracket"},
    {sf::Keyboard::RBracket, Keyboard::RIGHTBRACKET, "]", "RBracket"},
};

// SFML 2.5 can't describe a key itself, so the log names the keys without a
// code from this list; a key missing here is named by its SFML number.
const struct {
  sf::Keyboard::Key sfml;
  const char* name;
} UNCODED[] = {
    {sf::Keyboard::Hyphen, "Hyphen"},   {sf::Keyboard::Numpad0, "Numpad0"},
    {sf::Keyboard::Numpad1, "Numpad1"}, {sf::Keyboard::Numpad2, "Numpad2"},
    {sf::Keyboard::Numpad3, "Numpad3"}, {sf::Keyboard::Numpad4, "Numpad4"},
    {sf::Keyboard::Numpad5, "Numpad5"}, {sf::Keyboard::Numpad6, "Numpad6"},
    {sf::Keyboard::Numpad7, "Numpad7"}, {sf::Keyboard::Numpad8, "Numpad8"},
    {sf::Keyboard::Numpad9, "Numpad9"}, {sf::Keyboard::Divide, "Divide"},
    {sf::Keyboard::PageUp, "PageUp"},   {sf::Keyboard::PageDown, "PageDown"},
    {sf::Keyboard::Home, "Home"},       {sf::Keyboard::End, "End"},
    {sf::Keyboard::Insert, "Insert"},   {sf::Keyboard::Delete, "Delete"},
    {sf::Keyboard::LAlt, "LAlt"},       {sf::Keyboard::RAlt, "RAlt"},
    {sf::Keyboard::LSystem, "LSystem"}, {sf::Keyboard::RSystem, "RSystem"},
    {sf::Keyboard::Menu, "Menu"},       {sf::Keyboard::F13, "F13"},
    {sf::Keyboard::F14, "F14"},         {sf::Keyboard::F15, "F15"},
};

// Asked for KEY_DOWN in every frame, in this order. F11 and F12 are left out
// on purpose: they give only KEY_PRESSED and KEY_RELEASED.
const Keyboard::Key POLLED[] = {
    Keyboard::UPARROW,    Keyboard::DOWNARROW,   Keyboard::LEFTARROW,
    Keyboard::RIGHTARROW, Keyboard::SPACE,       Keyboard::RETURN,
    Keyboard::TAB,        Keyboard::ESCAPE,      Keyboard::PAUSE,
    Keyboard::MINUS,      Keyboard::PLUS,        Keyboard::TILDE,
    Keyboard::PERIOD,     Keyboard::COMMA,       Keyboard::SLASH,
    Keyboard::EQUAL,      Keyboard::BACKSLASH,   Keyboard::MULTIPLY,
    Keyboard::QUOTE,      Keyboard::LEFTBRACKET, Keyboard::RIGHTBRACKET,
    Keyboard::SEMICOLON,  Keyboard::LEFTCONTROL, Keyboard::RIGHTCONTROL,
    Keyboard::LEFTSHIFT,  Keyboard::RIGHTSHIFT,  Keyboard::F1,
    Keyboard::F2,         Keyboard::F3,          Keyboard::F4,
    Keyboard::F5,         Keyboard::F6,          Keyboard::F7,
    Keyboard::F8,         Keyboard::F9,          Keyboard::F10,
    Keyboard::A,          Keyboard::B,           Keyboard::C,
    Keyboard::D,          Keyboard::E,           Keyboard::F,
    Keyboard::G,          Keyboard::H,           Keyboard::I,
    Keyboard::J,          Keyboard::K,           Keyboard::L,
    Keyboard::M,          Keyboard::N,           Keyboard::O,
    Keyboard::P,          Keyboard::Q,           Keyboard::R,
    Keyboard::S,          Keyboard::T,           Keyboard::U,
    Keyboard::V,          Keyboard::W,           Keyboard::X,
    Keyboard::Y,          Keyboard::Z,           Keyboard::NUM1,
    Keyboard::NUM2,       Keyboard::NUM3,        Keyboard::NUM4,
    Keyboard::NUM5,       Keyboard::NUM6,        Keyboard::NUM7,
    Keyboard::NUM8,       Keyboard::NUM9,        Keyboard::NUM0,
    Keyboard::BACKSPACE,
};

const KeyEntry* entryOfSfml(sf::Keyboard::Key sfml) {
  for (const KeyEntry& entry : KEYS) {
    if (entry.sfml == sfml) return &entry;
  }
  return nullptr;
}

const KeyEntry* entryOfCode(int key) {
  for (const KeyEntry& entry : KEYS) {
    if (entry.key == key) return &entry;
  }
  return nullptr;
}

std::string describe(sf::Keyboard::Key sfml) {
  if (const KeyEntry* p_entry = entryOfSfml(sfml)) return p_entry->name;
  for (const auto& uncoded : UNCODED) {
    if (uncoded.sfml == sfml) return uncoded.name;
  }
  return "code " + std::to_string(static_cast<int>(sfml));
}

int toMouseButton(sf::Mouse::Button button) {
  switch (button) {
    case sf::Mouse::Left: return Mouse::LEFT;
    case sf::Mouse::Right: return Mouse::RIGHT;
    case sf::Mouse::Middle: return Mouse::MIDDLE;
    default: return Mouse::UNDEFINED_MOUSE_BUTTON;
  }
}

Vector toSpaces(int x, int y) { return pixelsToSpaces(Vector(static_cast<float>(x), static_cast<float>(y))); }

}  // namespace

InputManager::InputManager() { setType("InputManager"); }

InputManager& InputManager::getInstance() {
  static InputManager input_manager;
  return input_manager;
}

bool InputManager::isValid(const std::string& event_type) const {
  return event_type == KEYBOARD_EVENT || event_type == MOUSE_EVENT;
}

int InputManager::startUp() {
  LogManager& log = LogManager::getInstance();
  if (refuseSecondStart()) return -1;
  if (Config::getInstance().getHeadless()) {
    log.writeLog(LOG_INFO, "InputManager::startUp(): no input in headless mode.");
    Manager::startUp();
    log.writeLog(LOG_DETAIL, "InputManager::startUp(): successfully started.");
    return 0;
  }
  DisplayManager& display = DisplayManager::getInstance();
  if (!display.isStarted()) {
    log.writeLog("InputManager::startUp(): Error! DisplayManager must be started first.");
    return -1;
  }
  // Without repeat a held key gives one KEY_PRESSED; KEY_DOWN covers the rest.
  if (sf::RenderWindow* p_window = display.getWindow()) {
    p_window->setKeyRepeatEnabled(false);
    log.writeLog(LOG_NOTICE, "InputManager::startUp(): Keyboard repeated disabled.");
  } else {
    log.writeLog("InputManager::startUp(): Warning! DisplayManager null. Cannot disable keyboard repeat.");
  }
  Manager::startUp();
  log.writeLog(LOG_DETAIL, "InputManager::startUp(): successfully started.");
  return 0;
}

void InputManager::shutDown() {
  LogManager& log = LogManager::getInstance();
  if (sf::RenderWindow* p_window = DisplayManager::getInstance().getWindow()) {
    p_window->setKeyRepeatEnabled(true);
    log.writeLog(LOG_NOTICE, "InputManager::shutDown(): Keyboard repeat enabled.");
  }
  Manager::shutDown();
  log.writeLog(LOG_DETAIL, "InputManager::shutDown(): successfully stopped.");
}

void InputManager::getInput() {
  if (Config::getInstance().getHeadless()) return;
  LogManager& log = LogManager::getInstance();
  sf::RenderWindow* p_window = DisplayManager::getInstance().getWindow();
  if (!p_window) {
    log.writeLog("InputManager::getInput(): DisplayManager unexpectedly returned null window!");
    return;
  }

  // Edge events. Released buttons, the wheel, resizes and the rest are dropped.
  sf::Event event;
  while (p_window->pollEvent(event)) {
    if (event.type == sf::Event::Closed) {
      log.writeLog(LOG_INFO, "InputManager::getInput(): Window closed. Setting game over.");
      GameManager::getInstance().setGameOver(true);
      return;  // the rest of this frame's input stays unread
    }
    if (event.type == sf::Event::KeyPressed) {
      EventKeyboard keyboard = toEventKeyboard(event);
      keyboard.setKeyboardAction(KEY_PRESSED);
      onEvent(&keyboard);
    } else if (event.type == sf::Event::KeyReleased) {
      EventKeyboard keyboard = toEventKeyboard(event);
      keyboard.setKeyboardAction(KEY_RELEASED);
      onEvent(&keyboard);
    } else if (event.type == sf::Event::MouseMoved) {
      EventMouse mouse;
      mouse.setMouseAction(MOVED);
      mouse.setMouseButton(Mouse::UNDEFINED_MOUSE_BUTTON);
      mouse.setMousePosition(toSpaces(event.mouseMove.x, event.mouseMove.y));
      onEvent(&mouse);
    } else if (event.type == sf::Event::MouseButtonPressed) {
      EventMouse mouse;
      mouse.setMouseAction(CLICKED);
      mouse.setMouseButton(toMouseButton(event.mouseButton.button));
      mouse.setMousePosition(toSpaces(event.mouseButton.x, event.mouseButton.y));
      onEvent(&mouse);
    }
  }

  // Level events, from the real state of the devices whether or not the
  // window has the focus. Nothing is kept between frames.
  sf::Vector2i mouse_xy = sf::Mouse::getPosition(*p_window);
  EventMouse pressed;
  pressed.setMouseAction(PRESSED);
  pressed.setMousePosition(toSpaces(mouse_xy.x, mouse_xy.y));
  for (sf::Mouse::Button button : {sf::Mouse::Left, sf::Mouse::Right, sf::Mouse::Middle}) {
    if (!sf::Mouse::isButtonPressed(button)) continue;
    pressed.setMouseButton(toMouseButton(button));
    onEvent(&pressed);
  }
  for (Keyboard::Key key : POLLED) {
    if (!sf::Keyboard::isKeyPressed(entryOfCode(key)->sfml)) continue;
    EventKeyboard down;
    down.setKey(key);
    down.setKeyboardAction(KEY_DOWN);
    onEvent(&down);
  }
}

EventKeyboard toEventKeyboard(const sf::Event& event) {
  LogManager& log = LogManager::getInstance();
  EventKeyboard keyboard;
  if (event.type != sf::Event::KeyPressed && event.type != sf::Event::KeyReleased) {
    log.writeLog("toEventKeyboard(): Error! Called with non-keyboard event.");
    keyboard.setKey(Keyboard::UNDEFINED_KEY);
    return keyboard;
  }
  std::string description = describe(event.key.code);
  const KeyEntry* p_entry = entryOfSfml(event.key.code);
  if (p_entry) {
    keyboard.setKey(p_entry->key);
  } else {
    log.writeLog(LOG_INFO, "InputManager::toEventKeyboard(): Warning key '%s' not handled.",
                 description.c_str());
    keyboard.setKey(Keyboard::UNDEFINED_KEY);
  }
  log.writeLog(LOG_EVENTS, "InputManager::toEventKeyboard(): Keyboard event '%s' (%s)",
               keyToString(keyboard.getKey()).c_str(), description.c_str());
  return keyboard;
}

std::string keyToString(int key) {
  // No SFML key gives the back quote, so it stands outside the table.
  if (key == Keyboard::BACKQUOTE) return "`";
  const KeyEntry* p_entry = entryOfCode(key);
  return p_entry ? p_entry->text : "";
}

}  // namespace ot
