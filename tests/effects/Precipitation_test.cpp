#include "engine/effects/Precipitation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "engine/core/Box.h"
#include "engine/core/EventOut.h"
#include "engine/core/EventStep.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/RandReplay.h"

namespace {

using ot_test::replayMod;

class PrecipitationTest : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 1; }
};

ot::Precipitation* flake(ot::Direction direction = ot::DOWN) {
  return new ot::Precipitation(3.0f, direction, 128, 255, 255, 255);
}

TEST_F(PrecipitationTest, NeverAges) {
  ot::Precipitation* p = flake();
  ot_test::runFrames(3);
  EXPECT_EQ(1, ot::WorldManager::getInstance().objectsOfType("Precipitation").getCount());
  EXPECT_EQ(0, p->getAge());
}

TEST_F(PrecipitationTest, OutEventReentersBeyondTheFarEdge) {
  struct Case {
    ot::Direction direction;
    int x_base, x_mod, y_base, y_mod;  // a mod of -5 stands for (-rand()) % 5
  };
  const Case cases[] = {
      {ot::UP, 0, 80, 24, 5}, {ot::DOWN, 0, 80, 0, -5}, {ot::LEFT, 80, 5, 0, 24}, {ot::RIGHT, 0, -5, 0, 24}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.direction);
    ot::Precipitation* p = flake(c.direction);
    srand(5);
    int x = c.x_base + (c.x_mod > 0 ? rand() % c.x_mod : (-rand()) % 5);
    int y = c.y_base + (c.y_mod > 0 ? rand() % c.y_mod : (-rand()) % 5);
    ot::Vector expected = ot_test::replayScatter(x, y);
    srand(5);
    ot::EventOut out;
    EXPECT_EQ(1, p->eventHandler(&out));
    EXPECT_EQ(expected, p->getPosition());
  }
  ot::Precipitation* lost = flake(static_cast<ot::Direction>(7));
  ot::Vector before = lost->getPosition();
  ot::EventOut out;
  EXPECT_EQ(-1, lost->eventHandler(&out));
  EXPECT_EQ(before, lost->getPosition());
  EXPECT_TRUE(
      ot_test::logHas(logMessages(), "Precipitation::eventHandler(): warning! Direction 7 not supported."));
}

TEST_F(PrecipitationTest, WobbleDriftsAtMostAQuarterOfTheFirstSpeed) {
  ot::Precipitation* p = flake();
  p->setVelocity(ot::Vector(0.0f, 0.25f));
  ot::EventStep step;
  p->eventHandler(&step);  // without wobble, nothing changes
  EXPECT_EQ(ot::Vector(0.0f, 0.25f), p->getVelocity());

  p->setWobble(true);
  for (int seed = 1; seed <= 20; seed++) {
    ot::Vector v = p->getVelocity();
    srand(seed);
    int y_up = replayMod(100), y_down = replayMod(100), x_up = replayMod(100), x_down = replayMod(100);
    float y = static_cast<float>(v.getY() + y_up / 1000.0 - y_down / 1000.0);
    float x = static_cast<float>(v.getX() + x_up / 1000.0 - x_down / 1000.0);
    if (std::fabs(x - 0.0f) / 0.25f > 0.25f) x = v.getX();
    if (std::fabs(y - 0.25f) / 0.25f > 0.25f) y = v.getY();
    srand(seed);
    EXPECT_EQ(0, p->eventHandler(&step));
    EXPECT_NEAR(x, p->getVelocity().getX(), 1e-6f);
    EXPECT_NEAR(y, p->getVelocity().getY(), 1e-6f);
  }
}

TEST_F(PrecipitationTest, StillFlakeWobblesSidewaysOnly) {
  // With no speed to measure against, only x is exempt from the limit.
  ot::Precipitation* p = flake();
  p->setWobble(true);
  srand(3);
  int y_up = replayMod(100), y_down = replayMod(100), x_up = replayMod(100), x_down = replayMod(100);
  ASSERT_NE(y_up, y_down);
  srand(3);
  ot::EventStep step;
  p->eventHandler(&step);
  EXPECT_FLOAT_EQ(0.0f, p->getVelocity().getY());
  EXPECT_NEAR((x_up - x_down) / 1000.0, p->getVelocity().getX(), 1e-6);
}

TEST_F(PrecipitationTest, WorldWithoutRoomPlacesAtOriginWithoutDrawing) {
  ot::WorldManager::getInstance().setBoundary(ot::Box(ot::Vector(), 0.0f, 0.0f));
  srand(9);
  int expected = rand();
  srand(9);
  ot::Precipitation* p = flake();
  EXPECT_EQ(ot::Vector(0.0f, 0.0f), p->getPosition());
  ot::EventOut out;
  EXPECT_EQ(-1, p->eventHandler(&out));
  EXPECT_EQ(expected, rand());
}

}  // namespace
