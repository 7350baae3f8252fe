#include "engine/effects/Particles.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

#include "engine/effects/Debris.h"
#include "engine/effects/Particle.h"
#include "engine/effects/Precipitation.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/presentation/Sprite.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/RandReplay.h"

namespace {

using ot_test::replayMod;
using ot_test::replayUniform;
using ParticlesTest = ot_test::HeadlessEngine;

ot::ObjectList ofType(const char* type) { return ot::WorldManager::getInstance().objectsOfType(type); }
ot::Shape shapeOf(int i) { return ofType("Particle")[i]->getShape(); }

// count plain particles at (10, 10), only colour and opacity spread.
int plainBurst(int count, int count_spread, unsigned char r, unsigned char g, unsigned char b,
               unsigned char color_spread = 0, unsigned char opacity_spread = 0) {
  return ot::addParticles(count, count_spread, ot::Vector(10, 10), 0.0f, ot::Vector(1, 0), 0.0f, 1.0f, 0.0f,
                          0.1f, 0.0f, 10, 0, 200, opacity_spread, r, g, b, color_spread, ot::PARTICLE);
}

TEST_F(ParticlesTest, CountAloneDecidesHowManyAndZeroDrawsNothing) {
  srand(4);
  int next = rand();
  srand(4);
  EXPECT_EQ(0, ot::addParticles(0, 50, ot::Vector(), 1.0f, ot::Vector(), 1.0f, 1.0f, 1.0f, 1.0f, 1.0f, 10, 5,
                                200, 50, 1, 1, 1, 50, ot::PARTICLE));
  EXPECT_EQ(0, plainBurst(-3, 0, 1, 1, 1));
  EXPECT_EQ(next, rand());
  EXPECT_EQ(0, plainBurst(3, 100, 1, 1, 1));
  EXPECT_EQ(0, plainBurst(3, -100, 1, 1, 1));
  EXPECT_EQ(6, ofType("Particle").getCount());
}

TEST_F(ParticlesTest, DrawsInTheFixedOrder) {
  srand(2024);
  int opacity = (200 + replayMod(40) - 20) & 0xff;
  int age = 30 + replayMod(10) - 5;
  float size = 2.0f + replayUniform(1.0f);
  int d = replayMod(60) - 30;
  float vx = 0.6f + replayUniform(0.5f);
  float vy = -0.8f + replayUniform(0.5f);
  ot::Vector v(vx, vy);
  v.normalize();
  v.scale(0.5f + replayUniform(0.2f));
  float px = 10.0f + replayUniform(3.0f);
  float py = 5.0f + replayUniform(3.0f);

  srand(2024);
  ASSERT_EQ(0, ot::addParticles(1, 9, ot::Vector(10, 5), 3.0f, ot::Vector(0.6f, -0.8f), 0.5f, 2.0f, 1.0f,
                                0.5f, 0.2f, 30, 10, 200, 40, 100, 0, 50, 60, ot::PARTICLE));
  auto* p = static_cast<ot::Particle*>(ofType("Particle")[0]);
  EXPECT_EQ(opacity, p->getShape().getOpacity());
  EXPECT_EQ(age, p->getAge());
  EXPECT_FLOAT_EQ(size, p->getShape().getSize());
  EXPECT_EQ(100 + d, p->getShape().getR());
  EXPECT_EQ(50 + d, p->getShape().getB());
  EXPECT_NEAR(v.getX(), p->getVelocity().getX(), 1e-6f);
  EXPECT_NEAR(v.getY(), p->getVelocity().getY(), 1e-6f);
  EXPECT_EQ(ot::Vector(px, py), p->getPosition());
}

TEST_F(ParticlesTest, ZeroDirectionBurstsEverywhereIgnoringItsSpread) {
  srand(77);
  int a = replayMod(32768), b = replayMod(32768), c = replayMod(32768), d = replayMod(32768);
  ot::Vector v((a - b) / 32767.0f, (c - d) / 32767.0f);
  v.normalize();
  v.scale(0.5f);
  float x = 10.0f + replayUniform(2.0f);  // the position's draws come next
  srand(77);
  ot::addParticles(1, 0, ot::Vector(10, 10), 2.0f, ot::Vector(), 5.0f, 1.0f, 0.0f, 0.5f, 0.0f, 10, 0, 255, 0,
                   1, 1, 1, 0, ot::PARTICLE);
  ot::Object* p = ofType("Particle")[0];
  EXPECT_NEAR(v.getX(), p->getVelocity().getX(), 1e-6f);
  EXPECT_NEAR(v.getY(), p->getVelocity().getY(), 1e-6f);
  EXPECT_FLOAT_EQ(x, p->getPosition().getX());
}

TEST_F(ParticlesTest, ColourSpreadClampsAndSparesZeroChannelsWhileOpacityWraps) {
  const int n = 60;
  srand(8);
  plainBurst(n, 0, 200, 0, 60, 255, 200);
  srand(8);
  int clamped_high = 0, clamped_low = 0, wrapped = 0;
  for (int i = 0; i < n; i++) {
    int opacity = (200 + replayMod(200) - 100) & 0xff;
    int d = replayMod(255) - 127;
    EXPECT_EQ(opacity, shapeOf(i).getOpacity());
    EXPECT_EQ(std::min(255, 200 + d), shapeOf(i).getR());
    EXPECT_EQ(0, shapeOf(i).getG());
    EXPECT_EQ(std::max(0, 60 + d), shapeOf(i).getB());
    clamped_high += 200 + d > 255;
    clamped_low += 60 + d < 0;
    wrapped += opacity < 100;
  }
  EXPECT_GT(clamped_high, 0);  // every rule was met
  EXPECT_GT(clamped_low, 0);
  EXPECT_GT(wrapped, 0);
}

TEST_F(ParticlesTest, SparksAreOrangeUnlessANamedColourIsGiven) {
  ASSERT_EQ(0, ot::addParticles(ot::SPARKS, ot::Vector(10, 10), 1.0f, ot::CUSTOM));
  ASSERT_EQ(50, ofType("Particle").getCount());
  EXPECT_EQ(255, shapeOf(0).getR());
  EXPECT_EQ(69, shapeOf(0).getG());
  EXPECT_EQ(0, shapeOf(0).getB());
  ASSERT_EQ(0, ot::addParticles(ot::SPARKS, ot::Vector(10, 10), 1.0f, ot::BLUE));
  unsigned char r = 9, g = 9, b = 9;
  ot::colorToRGB(ot::BLUE, r, g, b);
  EXPECT_EQ(r, shapeOf(50).getR());
  EXPECT_EQ(b, shapeOf(50).getB());

  EXPECT_EQ(0, ot::addParticles(ot::SPARKS, ot::Vector(10, 10), 0.019f, ot::CUSTOM));
  EXPECT_EQ(100, ofType("Particle").getCount());
}

TEST_F(ParticlesTest, UnknownKindsAreRefused) {
  EXPECT_EQ(-1, ot::addParticles(static_cast<ot::ParticleType>(4), ot::Vector(), 1.0f, ot::CUSTOM));
  EXPECT_EQ(-1, ot::addParticles(1, 0, ot::Vector(), 0, ot::Vector(1, 0), 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 1, 1,
                                 0, static_cast<ot::ParticleClass>(5)));
  EXPECT_TRUE(ot_test::logHas(logMessages(), "addParticles(): Type 5 not defined."));
  EXPECT_EQ(0, ofType("Particle").getCount());
}

TEST_F(ParticlesTest, PrecipitationDrawsAllSizesBeforePlacing) {
  srand(6);
  float first = replayMod(20) / 10.0f + 3.0f;
  replayMod(20);  // the second flake's size
  int y = replayMod(24);
  int x = replayMod(80);
  x += replayMod(10);
  ot::Vector position = ot_test::replayScatter(x, y);
  srand(6);
  ot::addParticles(ot::SNOW, ot::UP, 2.0f / 32.0f, ot::CUSTOM);
  ot::ObjectList flakes = ofType("Precipitation");
  ASSERT_EQ(2, flakes.getCount());
  auto* p = static_cast<ot::Precipitation*>(flakes[0]);
  EXPECT_FLOAT_EQ(first, p->getShape().getSize());
  EXPECT_EQ(position, p->getPosition());
  EXPECT_EQ(ot::Vector(0.0f, -0.25f), p->getVelocity());
  EXPECT_TRUE(p->getWobble());
}

TEST_F(ParticlesTest, PrecipitationRefusesUnknownDirectionBeforeMaking) {
  auto bad = static_cast<ot::Direction>(4);
  EXPECT_EQ(-1, ot::addParticles(ot::RAIN, bad, 1.0f, ot::CUSTOM));
  EXPECT_EQ(-1, ot::addParticles(ot::SNOW, bad, 1.0f, ot::CUSTOM));
  EXPECT_EQ(0, ot::addParticles(ot::SNOW, bad, 0.0f, ot::CUSTOM));
  EXPECT_EQ(0, ot::addParticles(static_cast<ot::PrecipitationType>(3), ot::UP, 1.0f, ot::CUSTOM));
  EXPECT_EQ(0, ofType("Precipitation").getCount());
  std::vector<std::string> log = logMessages();
  EXPECT_TRUE(ot_test::logHas(log, "addParticles(): Error!  Direction 4 not supported."));
  EXPECT_TRUE(ot_test::logHas(log, "addParticles(): Error! Direction 4 not supported."));
}

// Explosions of a one-frame sprite whose '.' is transparent.
class ExplodeTest : public ot_test::HeadlessEngine {
 protected:
  ot::Sprite* makeSprite(int w, int h, const std::string& text) {
    m_sprite.addFrame(ot::Frame(w, h, text));
    m_sprite.setWidth(w);
    m_sprite.setHeight(h);
    m_sprite.setTransparency('.');
    return &m_sprite;
  }
  ot::Sprite m_sprite{1};
};

// The debris' characters by their place.
std::map<std::pair<float, float>, char> picture() {
  std::map<std::pair<float, float>, char> chars;
  ot::ObjectList all = ofType("Debris");
  for (int i = 0; i < all.getCount(); i++)
    chars[{all[i]->getPosition().getX(), all[i]->getPosition().getY()}] =
        static_cast<ot::Debris*>(all[i])->getCh();
  return chars;
}

TEST_F(ExplodeTest, OneDebrisPerVisibleCharacterMirroredByTheTransform) {
  ot::Sprite* s = makeSprite(3, 2, "a.bcd.");
  EXPECT_EQ(0, ot::explode(s, 0, ot::Vector(10, 10), 16, 1.0f, 10.0f, ot::NONE));
  std::map<std::pair<float, float>, char> expected = {
      {{9, 9.5f}, 'a'}, {{11, 9.5f}, 'b'}, {{9, 10.5f}, 'c'}, {{10, 10.5f}, 'd'}};
  EXPECT_EQ(expected, picture());
  ot::WorldManager::getInstance().markForDelete(ofType("Debris"));
  ot::WorldManager::getInstance().update();

  ot::explode(s, 0, ot::Vector(10, 10), 16, 1.0f, 10.0f, ot::BOTH);
  expected = {{{10, 9.5f}, 'd'}, {{11, 9.5f}, 'c'}, {{9, 10.5f}, 'b'}, {{11, 10.5f}, 'a'}};
  EXPECT_EQ(expected, picture());
}

TEST_F(ExplodeTest, DrawsInTheFixedOrder) {
  ot::Sprite* s = makeSprite(1, 1, "x");
  srand(12);
  float vx = replayUniform(1.5f);  // from the centre itself, the velocity is the spread alone
  float vy = replayUniform(1.5f);
  ot::Vector v(vx, vy);
  v.normalize();
  int age = 40 - 5 + replayMod(10);
  v.scale(static_cast<float>(2.0 - 1.0 + replayMod(1000) * 1.0 / 1000.0));
  float spin = static_cast<float>(30.0 - 15.0 + replayMod(1000) * 15.0 / 1000.0);
  if (replayMod(2) == 0) spin = -spin;

  srand(12);
  ot::explode(s, 0, ot::Vector(10, 10), 40, 2.0f, 30.0f, ot::NONE);
  auto* d = static_cast<ot::Debris*>(ofType("Debris")[0]);
  EXPECT_EQ(age, d->getAge());
  EXPECT_FLOAT_EQ(spin, d->getRotationSpeed());
  EXPECT_NEAR(v.getX(), d->getVelocity().getX(), 1e-5f);
  EXPECT_NEAR(v.getY(), d->getVelocity().getY(), 1e-5f);
}

TEST_F(ExplodeTest, RefusesNullSpriteAndTooYoungDebris) {
  EXPECT_EQ(-1, ot::explode(nullptr, 0, ot::Vector(), 10, 1.0f, 1.0f, ot::NONE));
  EXPECT_EQ(-1, ot::explode(makeSprite(1, 1, "x"), 0, ot::Vector(), 3, 1.0f, 1.0f, ot::NONE));
  EXPECT_EQ(0, ot::explode(&m_sprite, 4, ot::Vector(), 10, 1.0f, 1.0f, ot::NONE));  // no such frame
  EXPECT_EQ(0, ofType("Debris").getCount());
  EXPECT_TRUE(ot_test::logHas(logMessages(), "explode(): Warning! sprite is NULL."));
}

}  // namespace
