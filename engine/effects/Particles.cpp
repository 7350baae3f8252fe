#include "engine/effects/Particles.h"

#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include "engine/core/Box.h"
#include "engine/core/LogManager.h"
#include "engine/effects/Debris.h"
#include "engine/effects/Firework.h"
#include "engine/effects/Particle.h"
#include "engine/effects/Precipitation.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/presentation/Frame.h"
#include "engine/presentation/Sprite.h"
#include "engine/world/WorldManager.h"

namespace ot {

namespace {

// A value between -w/2 and w/2. The bursts were tuned for a rand() that tops
// out at 32767, so the draw is cut to that range before it is divided.
float uniformSpread(float w) { return static_cast<float>(rand() % 32768) / 32767.0f * w - w / 2.0f; }

// One of a zero direction's components, in -1 to 1; the first draw is added.
float burstComponent() {
  int plus = rand() % 32768;
  int minus = rand() % 32768;
  return static_cast<float>(plus - minus) / 32767.0f;
}

// A colour channel moved by d and kept in 0 to 255; a channel given as 0 stays 0.
unsigned char spreadChannel(unsigned char value, int d) {
  if (value == 0) return 0;
  int moved = value + d;
  if (moved > 255) return 255;
  if (moved < 0) return 0;
  return static_cast<unsigned char>(moved);
}

// Somewhere from half of value up to value, drawn in thousandths.
float halfToWhole(float value) {
  return static_cast<float>(value - value / 2.0 + (rand() % 1000) * (value / 2.0) / 1000.0);
}

// A velocity of that speed along a direction's axis; false for an unknown one.
bool velocityAlong(Direction direction, float speed, Vector& velocity) {
  switch (direction) {
    case UP: velocity = Vector(0.0f, -speed); return true;
    case DOWN: velocity = Vector(0.0f, speed); return true;
    case LEFT: velocity = Vector(-speed, 0.0f); return true;
    case RIGHT: velocity = Vector(speed, 0.0f); return true;
  }
  return false;
}

}  // namespace

int addParticles(int count, int /*count_spread*/, Vector position, float position_spread, Vector direction,
                 float direction_spread, float size, float size_spread, float speed, float speed_spread,
                 int age, int age_spread, unsigned char opacity, unsigned char opacity_spread,
                 unsigned char r, unsigned char g, unsigned char b, unsigned char color_spread,
                 ParticleClass particle_class) {
  LogManager& log = LogManager::getInstance();
  // count_spread is never read: the presets pass values there, and the count
  // they make is to stay exact.
  for (int i = 0; i < count; i++) {
    float p_size = size;
    float p_speed = speed;
    int p_age = age;
    unsigned char p_opacity = opacity;
    unsigned char p_r = r;
    unsigned char p_g = g;
    unsigned char p_b = b;

    // Kept quirk: opacity wraps through 255 rather than clamping, unlike the
    // colour; seeded effects look as they always did.
    if (opacity_spread != 0)
      p_opacity = static_cast<unsigned char>(p_opacity + rand() % opacity_spread - opacity_spread / 2);
    if (age_spread != 0) p_age += rand() % age_spread - age_spread / 2;
    if (size_spread != 0.0f) p_size += uniformSpread(size_spread);
    if (color_spread != 0) {
      int d = rand() % color_spread - color_spread / 2;
      p_r = spreadChannel(p_r, d);
      p_g = spreadChannel(p_g, d);
      p_b = spreadChannel(p_b, d);
    }

    Particle* p_particle = nullptr;
    switch (particle_class) {
      case PARTICLE: p_particle = new (std::nothrow) Particle(p_size, p_age, p_opacity, p_r, p_g, p_b); break;
      case FIREWORK: p_particle = new (std::nothrow) Firework(p_size, p_age, p_opacity, p_r, p_g, p_b); break;
      default: log.writeLog("addParticles(): Type %d not defined.", particle_class); return -1;
    }
    if (!p_particle) {
      log.writeLog("addParticles(): Error!  Unable to create new Particle!");
      return -1;
    }

    // These draws follow the construction's, which draws nothing itself.
    Vector velocity;
    if (!direction) {
      // A burst in all directions; direction_spread is not used.
      float x = burstComponent();
      float y = burstComponent();
      velocity = Vector(x, y);
    } else {
      velocity = direction;
      if (direction_spread != 0.0f) {
        velocity.setX(velocity.getX() + uniformSpread(direction_spread));
        velocity.setY(velocity.getY() + uniformSpread(direction_spread));
      }
    }
    velocity.normalize();
    if (speed_spread != 0.0f) p_speed += uniformSpread(speed_spread);
    velocity.scale(p_speed);

    Vector final_position = position;
    if (position_spread != 0.0f) {
      final_position.setX(final_position.getX() + uniformSpread(position_spread));
      final_position.setY(final_position.getY() + uniformSpread(position_spread));
    }
    p_particle->setPosition(final_position);
    p_particle->setVelocity(velocity);
  }
  return 0;
}

int addParticles(ParticleType type, Vector position, float scale, Color color) {
  const float s = scale;
  int count = 0;
  int count_spread = 0;
  float position_spread = 0.0f;
  Vector direction;
  float direction_spread = 0.0f;
  float size = 0.0f;
  float size_spread = 0.0f;
  float speed = 0.0f;
  float speed_spread = 0.0f;
  int age = 0;
  int age_spread = 0;
  unsigned char opacity = 255;
  unsigned char opacity_spread = 75;
  unsigned char r = 255;
  unsigned char g = 69;
  unsigned char b = 0;
  unsigned char color_spread = 0;
  ParticleClass particle_class = PARTICLE;

  // Integer values truncate toward zero, so a small scale can make no particle.
  switch (type) {
    case SMOKE:
      count = static_cast<int>(20 * s);
      direction = Vector(0.0f, -1.0f);
      direction_spread = 0.3f * s / 2;
      size = 5 * s / 1.5f;
      size_spread = 0.15f * s;
      speed = 0.2f;
      speed_spread = 0.05f;
      age = static_cast<int>(20 * s);
      age_spread = static_cast<int>(5 * s);
      opacity = 128;
      opacity_spread = 50;
      r = g = b = 128;
      color_spread = 50;
      break;
    case SPARKS:
      count = static_cast<int>(50 * s);
      count_spread = static_cast<int>(20 * s);
      size = 1.5f * s;
      speed = 0.08f * (1 + s / 4);
      speed_spread = 0.08f * (1 + s / 4);
      age = static_cast<int>(15 * s);
      age_spread = static_cast<int>(15 * s);
      break;
    case BURST:
      count = static_cast<int>(50 * s);
      size = 2.5f * s;
      speed = 0.08f * (1 + s / 4);
      age = static_cast<int>(10 * s);
      r = 255;
      g = 20;
      b = 147;
      break;
    case FIREWORKS:
      count = static_cast<int>(4 * s);
      count_spread = static_cast<int>(5 * s);
      direction = Vector(0.0f, -1.0f);
      direction_spread = 1.5f;
      size = 2 * s;
      speed = 0.1f * (1 + s / 3);
      speed_spread = 0.1f * (1 + s / 3);
      age = static_cast<int>(20 * s);
      age_spread = static_cast<int>(20 * s);
      color_spread = 255;
      particle_class = FIREWORK;
      break;
    default:
      LogManager::getInstance().writeLog("addParticles(): Error! ParticleType %d not defined.", type);
      return -1;
  }
  // CUSTOM leaves the preset's channels; a named colour replaces them.
  colorToRGB(color, r, g, b);
  return addParticles(count, count_spread, position, position_spread, direction, direction_spread, size,
                      size_spread, speed, speed_spread, age, age_spread, opacity, opacity_spread, r, g, b,
                      color_spread, particle_class);
}

int addParticles(PrecipitationType type, Direction direction, float density, Color /*color*/) {
  LogManager& log = LogManager::getInstance();
  Box boundary = WorldManager::getInstance().getBoundary();
  const float area = boundary.getHorizontal() * boundary.getVertical();
  int count = 0;
  unsigned char opacity = 255;
  unsigned char r = 255;
  unsigned char g = 255;
  unsigned char b = 255;
  int altitude = 4;
  bool wobble = false;

  // Sizes and velocities are drawn for all first: each Precipitation draws
  // its own placement as it is made.
  std::vector<float> sizes;
  std::vector<Vector> velocities;
  switch (type) {
    case SNOW:
      count = static_cast<int>(area / 60 * density);
      opacity = 128;
      wobble = true;
      for (int i = 0; i < count; i++) {
        sizes.push_back(static_cast<float>(rand() % 20 / 10.0 + 3.0));
        Vector velocity;
        if (!velocityAlong(direction, 0.25f, velocity)) {
          log.writeLog("addParticles(): Error! Direction %d not supported.", direction);
          return -1;
        }
        velocities.push_back(velocity);
      }
      break;
    case RAIN:
      count = static_cast<int>(area / 60 * density);
      r = g = b = 128;
      opacity = 128;
      for (int i = 0; i < count; i++) {
        sizes.push_back(3.0f);
        Vector velocity;
        if (!velocityAlong(direction, 0.75f, velocity)) {
          log.writeLog("addParticles(): Error!  Direction %d not supported.", direction);
          return -1;
        }
        velocities.push_back(velocity);
      }
      break;
    case STARS:
      count = static_cast<int>(area / 120 * density);
      altitude = 0;
      for (int i = 0; i < count; i++) {
        // Size and speed share d: the near stars are large and fast.
        int d = rand() % 10 + 4;
        sizes.push_back(20.0f / static_cast<float>(d));
        Vector velocity;
        if (!velocityAlong(direction, 1.0f / static_cast<float>(d), velocity)) {
          log.writeLog("addParticles(): Error! Direction %d not supported.", direction);
          return -1;
        }
        velocities.push_back(velocity);
      }
      break;
  }

  for (size_t i = 0; i < sizes.size(); i++) {
    Precipitation* p_precipitation = new (std::nothrow) Precipitation(sizes[i], direction, opacity, r, g, b);
    if (!p_precipitation) {
      log.writeLog("addParticles(): Error!  Unable to create new Particle.");
      return -1;
    }
    p_precipitation->setVelocity(velocities[i]);
    p_precipitation->setAltitude(altitude);
    p_precipitation->setWobble(wobble);
  }
  return 0;
}

int explode(Sprite* sprite, int frame_index, Vector position, int age, float speed, float rotation,
            Transform transform) {
  LogManager& log = LogManager::getInstance();
  if (!sprite) {
    log.writeLog("explode(): Warning! sprite is NULL.");
    return -1;
  }
  std::string text = sprite->getFrame(frame_index).getString();
  if (text.empty()) return 0;

  const char transparency = sprite->getTransparency();
  const int h = sprite->getHeight();
  const int w = sprite->getWidth();
  if (h < 0 || w < 0 || text.size() < static_cast<size_t>(h) * static_cast<size_t>(w)) {
    log.writeLog("explode(): Warning! frame holds %d characters, fewer than %d x %d.",
                 static_cast<int>(text.size()), w, h);
    return -1;
  }
  const float half_w = static_cast<float>((w - 1) / 2.0);
  const float half_h = static_cast<float>((h - 1) / 2.0);
  const bool rows_down = transform == VERTICAL || transform == BOTH;
  const bool columns_down = transform == HORIZONTAL || transform == BOTH;

  for (int y = 0; y < h; y++) {
    const int source_row = rows_down ? h - 1 - y : y;
    for (int x = 0; x < w; x++) {
      const int source_column = columns_down ? w - 1 - x : x;
      const char c =
          text[static_cast<size_t>(source_row) * static_cast<size_t>(w) + static_cast<size_t>(source_column)];
      if (c == transparency) continue;
      // The age spread divides by age / 4.
      if (age / 4 == 0) {
        log.writeLog("explode(): Warning! age %d leaves no spread (age / 4 is 0); give 4 or more.", age);
        return -1;
      }

      // Placed by the counters, read by the source: a transform mirrors the
      // picture of the explosion.
      Vector p(position.getX() + static_cast<float>(x) - half_w,
               position.getY() + static_cast<float>(y) - half_h);
      Vector velocity = p - position;
      velocity.setX(velocity.getX() + uniformSpread(1.5f));
      velocity.setY(velocity.getY() + uniformSpread(1.5f));
      velocity.normalize();

      int p_age = age - age / 8 + rand() % (age / 4);
      velocity.scale(halfToWhole(speed));
      float rotation_speed = halfToWhole(rotation);
      if (rand() % 2 == 0) rotation_speed = -rotation_speed;

      Debris* p_debris =
          new (std::nothrow) Debris(p_age, 255, sprite->getColor(), velocity, c, rotation_speed);
      if (!p_debris) {
        log.writeLog("explode(): Error! Unable to create new Debris.");
        return -1;
      }
      p_debris->setPosition(p);
    }
  }
  return 0;
}

}  // namespace ot
