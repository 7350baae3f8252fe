#pragma once

// The engine's small enumerations. Their numbers appear in config files,
// sprite files and serialized objects, so they never change. Each has int as
// its type, so that any number read from outside is a value it can hold and
// be refused as unknown.

namespace ot {

enum Color : int {
  UNDEFINED_COLOR = -1,
  BLACK = 0,
  RED,
  GREEN,
  YELLOW,
  BLUE,
  MAGENTA,
  CYAN,
  WHITE,
  CUSTOM,  // r, g and b are given separately
};

enum Solidness : int {
  HARD = 0,  // collides and blocks
  SOFT,      // collides, doesn't block
  SPECTRAL,  // no collisions at all
};

// How an animation mirrors its frames.
enum Transform : int {
  NONE = 0,
  VERTICAL,
  HORIZONTAL,
  BOTH,
};

// Where a HUD item stands in the view.
enum Location : int {
  TOP_LEFT = 0,
  TOP_CENTER,
  TOP_RIGHT,
  CENTER_LEFT,
  CENTER_CENTER,
  CENTER_RIGHT,
  BOTTOM_LEFT,
  BOTTOM_CENTER,
  BOTTOM_RIGHT,
};

// What a network event reports.
enum NetworkEventLabel : int {
  UNDEFINED = -1,
  ACCEPT = 0,
  CONNECT,
  CLOSE,
  DATA,
};

// Drawing layers run from 0 to MAX_ALTITUDE; higher ones are drawn on top.
constexpr int MAX_ALTITUDE = 4;

// Interest rows per manager and interests per object.
constexpr int MAX_OBJ_EVENTS = 100;

}  // namespace ot
