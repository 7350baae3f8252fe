#include "engine/presentation/DisplayManager.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <tuple>

#include "engine/presentation/Frame.h"
#include "engine/presentation/Shape.h"
#include "engine/presentation/ViewObject.h"
#include "tests/support/FontFile.h"
#include "tests/support/HeadlessEngine.h"

// Mesa under Xvfb is unloaded before the leak check: its calloc blocks show as lost.
extern "C" const char* __lsan_default_suppressions() { return "leak:__interceptor_calloc\n"; }

// Reads the back buffer of a 640 by 480 window of 80 by 24 cells of 8 by 20
// pixels. A cell's background rectangle reaches from (x - 0.8, y + 4) to
// (x + 7.2, y + 24) around its corner: for the cell (10, 5), pixels 79 to 86 and 104 to 123.
namespace {

using ot::Vector;

using Span = std::tuple<float, float, std::string>;  // where and what, in red

class DisplayWindowTest : public ot_test::HeadlessEngine {
 protected:
  std::string configText() const override {
    return "headless:false,\nnetworking:false,\nwindow_horizontal_pixels:640,\n"
           "window_vertical_pixels:480,\nfont_scale:1.5,\nfont_file:" +
           ot_test::fontFile() + ",\n";
  }

  void SetUp() override {
    HeadlessEngine::SetUp();
    if (HasFatalFailure()) return;
    ASSERT_EQ(0, display().swapBuffers());  // a new back buffer holds anything until cleared
  }

  static ot::DisplayManager& display() { return ot::DisplayManager::getInstance(); }

  // What draw() leaves on the cleared window; cleared again afterwards.
  static sf::Image picture(const std::function<void()>& draw) {
    draw();
    sf::Texture texture;
    texture.create(640, 480);
    texture.update(*display().getWindow());
    display().swapBuffers();
    return texture.copyToImage();
  }
  // The picture of the spans, each drawn one character after the other from x on.
  static sf::Image cells(const std::vector<Span>& spans) {
    return picture([&] {
      for (auto [x, y, text] : spans) {
        for (char ch : text) display().drawCh(Vector(x++, y), ch, ot::RED);
      }
    });
  }
  static bool same(const sf::Image& a, const sf::Image& b) {
    return std::memcmp(a.getPixelsPtr(), b.getPixelsPtr(), 640 * 480 * 4) == 0;
  }

  // How many pixels pass the test.
  static int count(const sf::Image& image, const std::function<bool(unsigned, unsigned, sf::Color)>& test) {
    int n = 0;
    for (unsigned y = 0; y < 480; y++) {
      for (unsigned x = 0; x < 640; x++) n += test(x, y, image.getPixel(x, y));
    }
    return n;
  }
};

TEST_F(DisplayWindowTest, RedCharacterInksOnlyItsCellAndWipesWhatLayBelow) {
  sf::Image red = picture([] { ASSERT_EQ(0, display().drawCh(Vector(10, 5), 'o', ot::RED)); });
  EXPECT_EQ(0, count(red, [](auto, auto, auto c) { return c.g || c.b; }));
  EXPECT_LT(10, count(red, [](auto, auto, auto c) { return c.r > 200; }));
  // A blank over it leaves nothing, and a character over another only itself.
  EXPECT_TRUE(same(cells({}), cells({{10, 5, "o"}, {10, 5, " "}})));
  EXPECT_TRUE(same(cells({{10, 5, "."}}), cells({{10, 5, "o"}, {10, 5, "."}})));
}

TEST_F(DisplayWindowTest, JustificationPlacesTheFirstCell) {
  auto drawn = [](float y, const char* text, ot::Justification justification) {
    return picture([=] { EXPECT_EQ(0, display().drawString(Vector(10, y), text, justification, ot::RED)); });
  };
  EXPECT_TRUE(same(cells({{7, 3, "aco"}}), drawn(3, "aco", ot::RIGHT_JUSTIFIED)));  // ends one left of x
  EXPECT_TRUE(same(cells({{8, 5, "acoac"}}), drawn(5, "acoac", ot::CENTER_JUSTIFIED)));
  EXPECT_TRUE(same(cells({{9, 7, "ac"}}), drawn(7, "ac", ot::CENTER_JUSTIFIED)));
  EXPECT_TRUE(same(cells({{10, 9, "ac"}}), drawn(9, "ac", ot::LEFT_JUSTIFIED)));
  EXPECT_TRUE(same(cells({}), drawn(11, "", ot::RIGHT_JUSTIFIED)));
}

TEST_F(DisplayWindowTest, FrameCentresOnItsPositionMirrorsAndSeesThroughTransparency) {
  // Each frame goes over an 'o' at (9, 10).
  auto drawn = [](const ot::Frame& frame, int transform) {
    return picture([&] {
      display().drawCh(Vector(9, 10), 'o', ot::RED);
      EXPECT_EQ(0, frame.draw(Vector(10, 10), ot::RED, '#', ot::Transform(transform)));
    });
  };
  EXPECT_TRUE(same(cells({{9, 10, "oo"}}), drawn(ot::Frame(1, 1, "o"), ot::NONE)));
  // An even size puts the cells on half spaces. The rows read under NONE,
  // VERTICAL, HORIZONTAL, BOTH and 7, which counts as NONE:
  const std::string rows[] = {"acoa", "oaac", "caao", "aoca", "acoa"};
  for (int t = 0; t < 5; t++) {
    sf::Image expected =
        cells({{9, 10, "o"}, {9.5f, 9.5f, rows[t].substr(0, 2)}, {9.5f, 10.5f, rows[t].substr(2)}});
    EXPECT_TRUE(same(expected, drawn(ot::Frame(2, 2, "acoa"), t < 4 ? t : 7))) << t;
  }
  // Mirrored to "#ca", it leaves the 'o' below its first cell.
  EXPECT_TRUE(same(cells({{9, 10, "oca"}}), drawn(ot::Frame(3, 1, "ac#"), ot::HORIZONTAL)));
}

TEST_F(DisplayWindowTest, ViewObjectDrawsItsTextWithDashesAboveAndBelowAndBarsBeyond) {
  auto* p_item = new ot::ViewObject;
  p_item->setViewString("ac");
  p_item->setColor(ot::RED);
  p_item->setPosition(Vector(20, 10));
  auto drawn = [&] { return picture([&] { EXPECT_EQ(0, p_item->draw()); }); };
  // " ac 0 " from 17 to 22, bars at 20 - 3 - 1 and 16 + 6 + 1.
  EXPECT_TRUE(
      same(cells({{17, 10, " ac 0 "}, {17, 9, "------"}, {17, 11, "------"}, {16, 10, "|"}, {23, 10, "|"}}),
           drawn()));
  p_item->setBorder(false);
  EXPECT_TRUE(same(cells({{18, 10, "ac 0"}}), drawn()));
}

TEST_F(DisplayWindowTest, DrawnShapeOfANamedColourTakesItsChannels) {
  ot::Shape shape;
  shape.setColor(ot::YELLOW);
  sf::Image image = picture([&] { shape.draw(Vector(10, 5)); });
  EXPECT_EQ(sf::Color(255, 255, 0), sf::Color(shape.getR(), shape.getG(), shape.getB()));
  EXPECT_LT(0, count(image, [](auto, auto, auto c) { return c == sf::Color(255, 255, 0); }));
}

TEST_F(DisplayWindowTest, ShakeOffsetsFollowTheSeededDrawsXFirst) {
  srand(7);
  std::vector<int> draws(16);
  for (int& draw : draws) draw = rand();
  srand(7);
  display().shake(3, 3, 5, false);
  display().shake(1, 0, 2, true);
  for (int frame = 0; frame < 8; frame++) {
    ASSERT_EQ(0, display().swapBuffers());
    // Severities 4 and 3: x one of 5, 3, 1, -1, -3 and y one of 4, 2, 0, -2, for 7 frames.
    EXPECT_EQ(frame < 7 ? 5 - (draws[2 * frame] % 5) * 2 : 0, display().getShakeOffsetX()) << frame;
    EXPECT_EQ(frame < 7 ? 4 - (draws[2 * frame + 1] % 4) * 2 : 0, display().getShakeOffsetY()) << frame;
  }
  // A severity of -1 holds its axis and draws nothing; other negatives keep the formula.
  display().shake(-1, -3, 1, false);
  display().swapBuffers();
  EXPECT_EQ(0, display().getShakeOffsetX());
  EXPECT_EQ(-2 - (draws[14] % -2) * 2, display().getShakeOffsetY());
  EXPECT_EQ(draws[15], rand());
  display().shake(-2, 5, 0, false);  // reported only for a -1
  auto log = logMessages();
  EXPECT_EQ(
      1, std::count_if(log.begin(), log.end(), [](auto& line) { return line.find("::shake") != line.npos; }));
  EXPECT_TRUE(ot_test::logHas(
      log, "DisplayManager::shake(): Warning! severity (-1, -3) of -1; that axis won't shake."));
}

TEST_F(DisplayWindowTest, ShakeMovesTheTextButNotItsBackground) {
  sf::Image still = cells({{10, 5, "o"}});
  display().shake(0, 0, 1, false);  // a severity of 0 moves by 1
  display().swapBuffers();
  display().setBackgroundColor(ot::BLUE);
  sf::Image shaken = cells({{10, 5, "o"}});
  EXPECT_EQ(0, count(shaken, [&](unsigned x, unsigned y, auto c) {
              return c.r != (x && y ? still.getPixel(x - 1, y - 1).r : 0);
            }));
  // The blue rectangle stays on pixels 79 to 86 and 104 to 123.
  EXPECT_EQ(sf::Color::Blue, shaken.getPixel(79, 104));
  EXPECT_EQ(sf::Color::Black, shaken.getPixel(87, 124));
}

}  // namespace
