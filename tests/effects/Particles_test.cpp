#include "engine/effects/Particles.h"

#include <algorithm>

#include "engine/effects/Debris.h"
#include "engine/effects/Precipitation.h"
#include "engine/presentation/Sprite.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/RandReplay.h"

namespace {

using ot::Vector;
using ot_test::replayMod;
using ParticlesTest = ot_test::HeadlessEngine;

ot::ObjectList everything() { return ot::WorldManager::getInstance().getAllObjects(); }
void clearWorld() {
  ot::WorldManager::getInstance().markForDelete(everything());
  ot::WorldManager::getInstance().update();
}

// A burst at (10, 10) by the general form's arguments, or a preset (type 0 up) at scale 2.
struct Burst {
  int type;
  int count;
  float position_spread;
  Vector direction;
  float direction_spread, size, size_spread, speed, speed_spread;
  int age, age_spread;
  unsigned char opacity, opacity_spread, r, g, b, color_spread;
  ot::Color color = ot::CUSTOM;
};

void expectReplayed(const Burst& a, const ot::Object* p_o) {
  auto spread = [](float w) { return w != 0.0f ? ot_test::replayUniform(w) : 0.0f; };
  int opacity =
      a.opacity_spread ? (a.opacity + replayMod(a.opacity_spread) - a.opacity_spread / 2) & 0xff : a.opacity;
  int age = a.age + (a.age_spread ? replayMod(a.age_spread) - a.age_spread / 2 : 0);
  float size = a.size + spread(a.size_spread);
  int d = a.color_spread ? replayMod(a.color_spread) - a.color_spread / 2 : 0;
  auto channel = [d](int v) { return v == 0 ? 0 : std::clamp(v + d, 0, 255); };
  Vector v = a.direction;
  if (!v) {  // cut to 0..32767 before the division
    int xp = replayMod(32768), xm = replayMod(32768), yp = replayMod(32768), ym = replayMod(32768);
    v = Vector((xp - xm) / 32767.0f, (yp - ym) / 32767.0f);
  } else {
    float x = v.getX() + spread(a.direction_spread);
    v = Vector(x, v.getY() + spread(a.direction_spread));
  }
  v.normalize();
  v.scale(a.speed + spread(a.speed_spread));
  float x = 10 + spread(a.position_spread);
  Vector at(x, 10 + spread(a.position_spread));
  const ot::Shape s = p_o->getShape();
  EXPECT_EQ(std::make_tuple(opacity, age, channel(a.r), channel(a.g), channel(a.b), size, at),
            std::make_tuple(int{s.getOpacity()}, static_cast<const ot::Particle*>(p_o)->getAge(),
                            int{s.getR()}, int{s.getG()}, int{s.getB()}, s.getSize(), p_o->getPosition()));
  EXPECT_NEAR(v.getX(), p_o->getVelocity().getX(), 1e-6f);
  EXPECT_NEAR(v.getY(), p_o->getVelocity().getY(), 1e-6f);
}

TEST_F(ParticlesTest, PresetsDrawInTheFixedOrder) {
  const float s = 2.0f, spark = 0.08f * (1 + s / 4), fw = 0.1f * (1 + s / 3);
  const Burst cases[] = {
      {-1, 3, 3, Vector(0.6f, -0.8f), 0.5f, 2, 1, 0.5f, 0.2f, 30, 10, 200, 40, 100, 0, 50, 60},
      {-1, 0, 3, Vector(), 1, 1, 1, 1, 1, 10, 5, 200, 50, 1, 1, 1, 50},  // draws nothing
      // A zero direction bursts everywhere and ignores its spread.
      {-1, 2, 2, Vector(), 5, 1, 0, 0.5f, 0, 10, 0, 255, 0, 1, 1, 1, 0},
      // Colour clamps at both ends and spares a zero channel; opacity wraps.
      {-1, 60, 0, Vector(1, 0), 0, 1, 0, 0.1f, 0, 10, 0, 200, 200, 200, 0, 60, 255},
      {ot::SMOKE, 40, 0, Vector(0, -1), 0.3f * s / 2, 5 * s / 1.5f, 0.15f * s, 0.2f, 0.05f, 40, 10, 128, 50,
       128, 128, 128, 50},
      {ot::SPARKS, 100, 0, Vector(), 0, 1.5f * s, 0, spark, spark, 30, 30, 255, 75, 255, 69, 0, 0},
      {ot::SPARKS, 100, 0, Vector(), 0, 1.5f * s, 0, spark, spark, 30, 30, 255, 75, 0, 0, 255, 0, ot::BLUE},
      {ot::BURST, 100, 0, Vector(), 0, 2.5f * s, 0, spark, 0, 20, 0, 255, 75, 255, 20, 147, 0},
      {ot::FIREWORKS, 8, 0, Vector(0, -1), 1.5f, 2 * s, 0, fw, fw, 40, 40, 255, 75, 255, 69, 0, 255},
  };
  for (const Burst& a : cases) {
    SCOPED_TRACE(a.type);
    srand(31);
    if (a.type < 0)  // with a count_spread that changes nothing
      ASSERT_EQ(0, ot::addParticles(a.count, 100, Vector(10, 10), a.position_spread, a.direction,
                                    a.direction_spread, a.size, a.size_spread, a.speed, a.speed_spread, a.age,
                                    a.age_spread, a.opacity, a.opacity_spread, a.r, a.g, a.b, a.color_spread,
                                    ot::PARTICLE));
    else
      ASSERT_EQ(0, ot::addParticles(static_cast<ot::ParticleType>(a.type), Vector(10, 10), s, a.color));
    const int next = rand();
    ASSERT_EQ(a.count, everything().getCount());
    srand(31);
    for (int i = 0; i < a.count; i++) {
      EXPECT_EQ(a.type == ot::FIREWORKS ? "Firework" : "Particle", everything()[i]->getType());
      expectReplayed(a, everything()[i]);
    }
    EXPECT_EQ(next, rand());  // and no more draws
    clearWorld();
  }
  EXPECT_EQ(0, ot::addParticles(ot::SPARKS, Vector(), 0.019f, ot::CUSTOM));  // 50 * 0.019 truncates to 0
  EXPECT_EQ(-1, ot::addParticles(1, 0, Vector(), 0, Vector(1, 0), 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 1, 1, 0,
                                 static_cast<ot::ParticleClass>(5)));
  EXPECT_EQ("addParticles(): Type 5 not defined.", logMessages().back());
}

TEST_F(ParticlesTest, PrecipitationDrawsAllSizesBeforePlacing) {
  const Vector axis[] = {Vector(0, -1), Vector(0, 1), Vector(-1, 0), Vector(1, 0)};  // by direction
  // 80 x 24 spaces make 1920 / 60 flakes or drops, 1920 / 120 stars; a star's speed is 1 / d.
  for (auto [type, direction, count, shade, opacity, altitude, wobble, speed] :
       {std::tuple{ot::SNOW, ot::UP, 32, 255, 128, 4, true, 0.25f},
        {ot::RAIN, ot::DOWN, 32, 128, 128, 4, false, 0.75f},
        {ot::RAIN, ot::LEFT, 32, 128, 128, 4, false, 0.75f},
        {ot::STARS, ot::RIGHT, 16, 255, 255, 0, false, 0.0f}}) {
    srand(3);
    ASSERT_EQ(0, ot::addParticles(type, direction, 1.0f, ot::BLUE));  // the colour is never read
    ASSERT_EQ(count, everything().getCount());
    srand(3);
    for (int i = 0; i < count; i++) {
      float size = type == ot::SNOW ? static_cast<float>(replayMod(20) / 10.0 + 3.0) : 3.0f;
      if (type == ot::STARS) {
        int d = replayMod(10) + 4;  // near stars are large and fast
        size = 20.0f / static_cast<float>(d);
        speed = 1.0f / static_cast<float>(d);
      }
      auto* flake = static_cast<ot::Precipitation*>(everything()[i]);
      const ot::Shape shape = flake->getShape();
      EXPECT_EQ(std::make_tuple(size, Vector(axis[direction].getX() * speed, axis[direction].getY() * speed),
                                shade, shade, opacity, altitude, wobble),
                std::make_tuple(shape.getSize(), flake->getVelocity(), int{shape.getR()}, int{shape.getB()},
                                int{shape.getOpacity()}, flake->getAltitude(), flake->getWobble()))
          << direction;
    }
    int y = replayMod(24), x = replayMod(80);
    x += replayMod(10);
    EXPECT_EQ(ot_test::replayScatter(x, y), everything()[0]->getPosition());
    clearWorld();
  }
  EXPECT_EQ(-1, ot::addParticles(ot::RAIN, ot::Direction(4), 1.0f, ot::CUSTOM));
  EXPECT_EQ("addParticles(): Error!  Direction 4 not supported.", logMessages().back());
  EXPECT_EQ(0, everything().getCount());
}

TEST_F(ParticlesTest, ExplodeMakesOneDebrisPerVisibleCharacterMirroredByTheTransform) {
  ot::Sprite sprite(2);  // a.b over cd., with '.' see-through, then nothing to see
  sprite.setWidth(3);
  sprite.setHeight(2);
  sprite.setTransparency('.');
  sprite.setColor(ot::GREEN);
  sprite.addFrame(ot::Frame(3, 2, "a.bcd."));
  sprite.addFrame(ot::Frame(3, 2, "......"));
  const std::string pictures[] = {"a.bcd.", "cd.a.b", "b.a.dc", ".dcb.a", "a.bcd."};  // by transform
  for (int transform = 0; transform < 5; transform++) {                               // 4 is none of them
    srand(12);
    EXPECT_EQ(0, ot::explode(&sprite, 0, Vector(10, 10), 40, 2.0f, 30.0f, ot::Transform(transform)));
    srand(12);
    std::string picture = "......";
    for (int i = 0; i < everything().getCount(); i++) {
      auto* d = static_cast<ot::Debris*>(everything()[i]);
      Vector p = d->getPosition();
      picture.at(static_cast<size_t>((p.getY() - 9.5f) * 3 + p.getX() - 9)) = d->getCh();
      float vx = p.getX() - 10 + ot_test::replayUniform(1.5f);  // outward from the centre
      Vector v(vx, p.getY() - 10 + ot_test::replayUniform(1.5f));
      v.normalize();
      int age = 40 - 5 + replayMod(10);
      v.scale(static_cast<float>(1.0 + replayMod(1000) / 1000.0));
      float spin = static_cast<float>(15.0 + replayMod(1000) * 15.0 / 1000.0);
      if (replayMod(2) == 0) spin = -spin;
      EXPECT_EQ(std::make_tuple(age, ot::GREEN, spin),
                std::make_tuple(d->getAge(), d->getColor(), d->getRotationSpeed()));
      EXPECT_NEAR(v.getX(), d->getVelocity().getX(), 1e-5f);
      EXPECT_NEAR(v.getY(), d->getVelocity().getY(), 1e-5f);
    }
    EXPECT_EQ(pictures[transform], picture) << transform;
    clearWorld();
  }
  EXPECT_EQ(-1, ot::explode(nullptr, 0, Vector(), 10, 1.0f, 1.0f, ot::NONE));
  EXPECT_EQ("explode(): Warning! sprite is NULL.", logMessages().back());
  for (int age : {-3, 3}) {  // age / 4 divides the age spread: a zero is refused once a debris is due
    EXPECT_EQ(0, ot::explode(&sprite, 1, Vector(), age, 1.0f, 1.0f, ot::NONE));
    EXPECT_EQ(-1, ot::explode(&sprite, 0, Vector(), age, 1.0f, 1.0f, ot::NONE));
    EXPECT_EQ("explode(): Warning! age " + std::to_string(age) +
                  " leaves no spread (age / 4 is 0); give 4 or more.",
              logMessages().back());
  }
  EXPECT_EQ(0, ot::explode(&sprite, 0, Vector(), -4, 1.0f, 1.0f, ot::NONE));
  EXPECT_EQ(4, everything().getCount());
}

}  // namespace
