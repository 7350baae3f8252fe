#include <SFML/Graphics.hpp>
#include <functional>
#include <map>

#include "engine/core/GameManager.h"
#include "engine/effects/Splash.h"
#include "engine/presentation/DisplayManager.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FontFile.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

// The splash as drawn on a 640 by 480 window of 80 by 24 cells of 8 by 20
// pixels. The name's letters end by x 450; the creature lands right of that.
namespace {

class SplashWindowTest : public ot_test::HeadlessEngine {
 protected:
  std::string configText() const override {
    return "headless:false,\nnetworking:false,\nwindow_horizontal_pixels:640,\n"
           "window_vertical_pixels:480,\nfont_scale:1.5,\nfont_file:" +
           ot_test::fontFile() + ",\n";
  }
};

// Pixels of a colour left and right of x 454, the gap between name and creature.
struct Inks {
  int green_left = 0;
  int green_right = 0;
  int blue = 0;
};

Inks inks() {
  sf::Texture texture;
  texture.create(640, 480);
  // At a step the back buffer holds the frame drawn last, not yet shown.
  texture.update(*ot::DisplayManager::getInstance().getWindow());
  sf::Image image = texture.copyToImage();
  Inks found;
  for (unsigned y = 0; y < 480; y++) {
    for (unsigned x = 0; x < 640; x++) {
      sf::Color c = image.getPixel(x, y);
      if (c.g > 128 && c.r < 64 && c.b < 64) (x < 454 ? found.green_left : found.green_right)++;
      if (c.b > 128 && c.r < 64 && c.g < 64) found.blue++;
    }
  }
  return found;
}

TEST_F(SplashWindowTest, CreatureFliesInBlueBesideTheGreenName) {
  std::map<int, Inks> seen;
  auto* p_spy = new ot_test::SpyObject;
  p_spy->setSolidness(ot::SPECTRAL);
  p_spy->setVisible(false);
  p_spy->registerInterest(ot::STEP_EVENT);
  p_spy->on_event = [&](ot_test::SpyObject& spy, const ot::Event*) {
    int step = spy.steps.back();
    if (step == 10 || step == 50 || step == 80) seen[step] = inks();
  };
  ot_test::FakeClock clock;
  ot_test::FakeClock::stopAfterSleeps(200);
  ASSERT_EQ(0, ot::splash());
  // Sliding in, the name reaches past the gap; the creature is still below the view.
  EXPECT_EQ(0, seen[10].blue);
  EXPECT_LT(100, seen[10].green_left + seen[10].green_right);
  EXPECT_LT(100, seen[50].green_left);
  EXPECT_EQ(0, seen[50].green_right);
  EXPECT_LT(100, seen[50].blue);
  EXPECT_EQ(0, seen[80].blue);
  EXPECT_LT(100, seen[80].green_right);
}

}  // namespace
