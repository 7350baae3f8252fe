#pragma once

#include "engine/core/Types.h"
#include "engine/core/Vector.h"

namespace ot {

class Sprite;

// All four are 32-bit signed and take any int, so that an out-of-range value
// from a caller can be refused rather than be undefined.

// The way precipitation travels on the screen; spaces grow rightward and
// downward.
enum Direction : int {
  UP = 0,
  DOWN,
  LEFT,
  RIGHT,
};

// Which class the general addParticles constructs.
enum ParticleClass : int {
  PARTICLE = 0,
  FIREWORK,
};

// Presets of the class-driven addParticles.
enum ParticleType : int {
  SMOKE = 0,
  SPARKS,
  BURST,
  FIREWORKS,
};

// Presets of the precipitation addParticles.
enum PrecipitationType : int {
  SNOW = 0,
  RAIN,
  STARS,
};

// Bursts of short-lived particles. Each made object belongs to the world from
// its construction on; a failure part-way leaves the earlier ones in place.
// Randomness is rand(), unseeded here, and the order of draws is fixed.
//
//   ot::addParticles(ot::SPARKS, enemy_position, 1.0f, ot::CUSTOM);  // orange sparks

// Makes exactly count particles (count_spread is never read); -1 for an
// unknown particle_class or a failed allocation.
int addParticles(int count, int count_spread, Vector position, float position_spread, Vector direction,
                 float direction_spread, float size, float size_spread, float speed, float speed_spread,
                 int age, int age_spread, unsigned char opacity, unsigned char opacity_spread,
                 unsigned char r, unsigned char g, unsigned char b, unsigned char color_spread,
                 ParticleClass particle_class);

// A preset burst scaled by scale; a named colour replaces the preset's, CUSTOM
// keeps it. -1 for an unknown type.
int addParticles(ParticleType type, Vector position, float scale, Color color);

// Fills the world with endless precipitation, density times the preset's count.
// color is accepted and never read. -1 for an unknown direction.
int addParticles(PrecipitationType type, Direction direction, float density, Color color);

// Breaks a sprite frame into one spinning Debris per visible character,
// flying outward from position. -1 for a null sprite, or for an age of -3 to
// 3 once a debris is due (its age spread divides by age / 4).
int explode(Sprite* sprite, int frame_index, Vector position, int age, float speed, float rotation,
            Transform transform);

}  // namespace ot
