#pragma once

#include <cstdlib>

#include "engine/core/Vector.h"
#include "engine/presentation/DisplayManager.h"

// Replays the effects' random draws from a seeded rand(), so that a test can
// work out what a burst must have made. Each call draws as the engine does.
// Function arguments are evaluated in no fixed order: give each draw its own
// statement.
namespace ot_test {

// A uniform spread of w: -w/2 to w/2 from one draw cut to 0..32767.
inline float replayUniform(float w) { return static_cast<float>(rand() % 32768) / 32767.0f * w - w / 2.0f; }

inline int replayMod(int n) { return rand() % n; }

// Where a whole-cell position lands after the scatter inside its cell, y drawn first.
inline ot::Vector replayScatter(int x, int y) {
  ot::Vector pixels = ot::spacesToPixels(ot::Vector(static_cast<float>(x), static_cast<float>(y)));
  int dy = replayMod(static_cast<int>(ot::charHeight()));
  int dx = replayMod(static_cast<int>(ot::charWidth()));
  return ot::pixelsToSpaces(
      ot::Vector(pixels.getX() + static_cast<float>(dx), pixels.getY() + static_cast<float>(dy)));
}

}  // namespace ot_test
