#include "engine/effects/Precipitation.h"

#include <array>
#include <cmath>

#include "engine/core/EventOut.h"
#include "engine/core/EventStep.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/RandReplay.h"

using PrecipitationTest = ot_test::HeadlessEngine;

TEST_F(PrecipitationTest, ReentersBeyondTheFarEdge) {
  auto flake = [](int d) { return new ot::Precipitation(3, ot::Direction(d), 128, 255, 255, 255); };
  ot::EventOut out;
  // x and y bases, then the moduli of their draws, -5 standing for (-rand()) % 5.
  const std::array<int, 5> cases[] = {
      {ot::UP, 0, 24, 80, 5}, {ot::DOWN, 0, 0, 80, -5}, {ot::LEFT, 80, 0, 5, 24}, {ot::RIGHT, 0, 0, -5, 24}};
  for (auto [direction, x, y, x_mod, y_mod] : cases) {
    ot::Precipitation* p = flake(direction);
    srand(5);
    x += x_mod > 0 ? rand() % x_mod : (-rand()) % 5;
    y += y_mod > 0 ? rand() % y_mod : (-rand()) % 5;
    ot::Vector expected = ot_test::replayScatter(x, y);
    srand(5);
    EXPECT_EQ(1, p->eventHandler(&out));
    EXPECT_EQ(expected, p->getPosition()) << direction;
  }
  EXPECT_EQ(-1, flake(7)->eventHandler(&out));
}

TEST_F(PrecipitationTest, WobbleDriftsAtMostAQuarterOfTheFirstSpeed) {
  ot::EventStep step;
  for (float speed : {0.25f, 0.0f}) {
    auto* p = new ot::Precipitation(3, ot::DOWN, 128, 255, 255, 255);
    p->setVelocity(ot::Vector(0.0f, speed));
    p->setWobble(true);
    ot::Vector first;  // the measure of the drift, taken by the first step that finds it zero
    for (int seed = 1; seed <= 20; seed++) {
      ot::Vector v = p->getVelocity();
      first = !first ? v : first;
      srand(seed);
      int y_up = rand() % 100, y_down = rand() % 100, x_up = rand() % 100, x_down = rand() % 100;
      float y = static_cast<float>(v.getY() + y_up / 1000.0 - y_down / 1000.0);
      float x = static_cast<float>(v.getX() + x_up / 1000.0 - x_down / 1000.0);
      float m = first.getMagnitude();  // at 0, x is exempt and any drift of y too much
      if (m > 0.0f && std::fabs(x - first.getX()) / m > 0.25f) x = v.getX();
      if (std::fabs(y - first.getY()) / m > 0.25f) y = v.getY();
      srand(seed);
      EXPECT_EQ(0, p->eventHandler(&step));
      EXPECT_NEAR(x, p->getVelocity().getX(), 1e-6f);
      EXPECT_NEAR(y, p->getVelocity().getY(), 1e-6f);
    }
  }
}
