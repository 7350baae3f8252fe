#pragma once

#include <string>

#include "engine/core/Manager.h"

namespace sf {
class Event;
}

namespace ot {

class EventKeyboard;

// Keyboard actions of EventKeyboard.
enum KeyboardAction {
  UNDEFINED_KEYBOARD_ACTION = -1,
  KEY_PRESSED = 0,
  KEY_RELEASED,
  KEY_DOWN,
};

// Mouse actions and buttons of EventMouse.
enum MouseAction {
  UNDEFINED_MOUSE_ACTION = -1,
  CLICKED = 0,
  PRESSED,
  MOVED,
};

namespace Mouse {
enum Button {
  UNDEFINED_MOUSE_BUTTON = -1,
  LEFT = 0,
  RIGHT,
  MIDDLE,
};
}  // namespace Mouse

// Key codes of EventKeyboard. 73 is left free.
namespace Keyboard {
enum Key {
  UNDEFINED_KEY = -1,
  SPACE = 0,
  RETURN,
  ESCAPE,
  TAB,
  LEFTARROW,
  RIGHTARROW,
  UPARROW,
  DOWNARROW,
  PAUSE,
  MINUS,
  PLUS,
  TILDE,
  PERIOD,
  COMMA,
  SLASH,
  EQUAL,
  BACKSLASH,
  MULTIPLY,
  QUOTE,
  SEMICOLON,
  LEFTCONTROL,
  RIGHTCONTROL,
  LEFTSHIFT,
  RIGHTSHIFT,
  F1,
  F2,
  F3,
  F4,
  F5,
  F6,
  F7,
  F8,
  F9,
  F10,
  F11,
  F12,
  A,
  B,
  C,
  D,
  E,
  F,
  G,
  H,
  I,
  J,
  K,
  L,
  M,
  N,
  O,
  P,
  Q,
  R,
  S,
  T,
  U,
  V,
  W,
  X,
  Y,
  Z,
  NUM1,
  NUM2,
  NUM3,
  NUM4,
  NUM5,
  NUM6,
  NUM7,
  NUM8,
  NUM9,
  NUM0,
  BACKSPACE,
  LEFTBRACKET = 74,
  RIGHTBRACKET,
  BACKQUOTE,
};
}  // namespace Keyboard

// Turns the window's input into engine events once a frame: edge events
// (pressed, released, clicked, moved) from SFML's queue, and level events
// (key down, button pressed) by asking SFML what is held. The only place that
// knows SFML's input types. Closing the window sets game over.
class InputManager : public Manager {
 public:
  static InputManager& getInstance();

  // "ot-keyboard" and "ot-mouse" only.
  bool isValid(const std::string& event_type) const override;
  ~InputManager() override = default;
  // -1 when the display isn't started (unless headless).
  int startUp() override;
  void shutDown() override;

  // Delivers this frame's input to interested objects.
  void getInput();

 private:
  InputManager();
};

// The engine event for an SFML key event, with key -1 for keys without a code.
EventKeyboard toEventKeyboard(const sf::Event& event);
// Printable text of a key code; empty for keys without one.
std::string keyToString(int key);

}  // namespace ot
