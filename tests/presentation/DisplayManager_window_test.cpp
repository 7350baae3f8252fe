#include "engine/presentation/DisplayManager.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <tuple>

#include "engine/presentation/Frame.h"
#include "engine/presentation/Shape.h"
#include "engine/presentation/ViewObject.h"
#include "engine/world/Line.h"
#include "tests/support/FontFile.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/ReferenceCells.h"

// Mesa under Xvfb is unloaded before the leak check: its calloc blocks show as lost.
extern "C" const char* __lsan_default_suppressions() { return "leak:__interceptor_calloc\n"; }

// Reads the back buffer of a 640 by 480 window of 80 by 24 cells of 8 by 20
// pixels. A cell's background rectangle reaches from (x - 0.8, y + 4) to
// (x + 7.2, y + 24) around its corner: for the cell (10, 5), pixels 79 to 86 and 104 to 123.
namespace {

using ot::Vector;

using Span = std::tuple<float, float, std::string>;  // where and what, in red

class DisplayManagerWindow : public ot_test::HeadlessEngine {
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

TEST_F(DisplayManagerWindow, RedCharacterInksOnlyItsCell) {
  sf::Image red = picture([] { ASSERT_EQ(0, display().drawCh(Vector(10, 5), 'o', ot::RED)); });
  EXPECT_EQ(0, count(red, [](auto, auto, auto c) { return c.g || c.b; }));
  EXPECT_LT(10, count(red, [](auto, auto, auto c) { return c.r > 200; }));
  // A blank over it leaves nothing, and a character over another only itself.
  EXPECT_TRUE(same(cells({}), cells({{10, 5, "o"}, {10, 5, " "}})));
  EXPECT_TRUE(same(cells({{10, 5, "."}}), cells({{10, 5, "o"}, {10, 5, "."}})));
}

TEST_F(DisplayManagerWindow, JustificationPlacesTheFirstCell) {
  auto drawn = [](float y, const char* text, ot::Justification justification) {
    return picture([=] { EXPECT_EQ(0, display().drawString(Vector(10, y), text, justification, ot::RED)); });
  };
  EXPECT_TRUE(same(cells({{7, 3, "aco"}}), drawn(3, "aco", ot::RIGHT_JUSTIFIED)));  // ends one left of x
  EXPECT_TRUE(same(cells({{8, 5, "acoac"}}), drawn(5, "acoac", ot::CENTER_JUSTIFIED)));
  EXPECT_TRUE(same(cells({{9, 7, "ac"}}), drawn(7, "ac", ot::CENTER_JUSTIFIED)));
  EXPECT_TRUE(same(cells({{10, 9, "ac"}}), drawn(9, "ac", ot::LEFT_JUSTIFIED)));
  EXPECT_TRUE(same(cells({}), drawn(11, "", ot::RIGHT_JUSTIFIED)));
}

TEST_F(DisplayManagerWindow, FrameCentresOnItsPosition) {
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

TEST_F(DisplayManagerWindow, ViewObjectBorderIsDashesAroundItsTextBetweenBars) {
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

TEST_F(DisplayManagerWindow, DrawnShapeOfANamedColourTakesItsChannels) {
  ot::Shape shape;
  shape.setColor(ot::YELLOW);
  sf::Image image = picture([&] { shape.draw(Vector(10, 5)); });
  EXPECT_EQ(sf::Color(255, 255, 0), sf::Color(shape.getR(), shape.getG(), shape.getB()));
  EXPECT_LT(0, count(image, [](auto, auto, auto c) { return c == sf::Color(255, 255, 0); }));
}

// Shapes of size 12 (cells of 8 pixels, font_scale 1.5) at pixel (80, 100).
TEST_F(DisplayManagerWindow, ASquareLeavesItsTurnOnLaterShapes) {
  ot::Shape shape;
  shape.setType(ot::SHAPE_SQUARE);
  shape.setColor(ot::RED);
  sf::Image square = picture([&] { shape.draw(Vector(10, 5)); });
  shape.setType(ot::SHAPE_CIRCLE);
  shape.setColor(ot::GREEN);
  sf::Image circle = picture([&] { shape.draw(Vector(10, 5)); });
  auto columns = [](const sf::Image& image, sf::Color color) {  // first and last holding the colour
    std::pair<int, int> span{640, -1};
    for (unsigned y = 0; y < 480; y++)
      for (int x = 0; x < 640; x++)
        if (image.getPixel(x, y) == color) span = {std::min(span.first, x), std::max(span.second, x)};
    return span;
  };
  // The square's radius is 12 / 1.5, not half the size: turned upright, about 11 pixels wide.
  auto [left, right] = columns(square, sf::Color::Red);
  EXPECT_NEAR(11, right - left + 1, 1);
  // The circle, radius 12 at an offset of 6, still turned 45 degrees about its corner.
  auto [circle_left, circle_right] = columns(circle, sf::Color::Green);
  EXPECT_NEAR(62, circle_left, 1.5);
  EXPECT_NEAR(86, circle_right, 1.5);
}

TEST_F(DisplayManagerWindow, ShakeOffsetsFollowTheSeededDrawsXFirst) {
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

TEST_F(DisplayManagerWindow, ShakeMovesTheTextButNotItsBackground) {
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

// A screen that draws every glyph in every colour next to others (so that
// glyphs spill into the next cell), cells over cells, strings, a change of
// background, shapes and a line between cells, and turned characters. Cells
// is the display itself or the per-call reference.
template <class Cells>
void drawScene(Cells& cells) {
  std::string chars = " \t\n\r";
  for (int ch = 33; ch < 127; ch++) chars += static_cast<char>(ch);
  chars += std::string("\0\x01\xe9\xff", 4);
  const int n = static_cast<int>(chars.size());
  for (int row = 0; row < 10; row++) {
    // 8 is CUSTOM and 99 unknown: both draw the worker's white.
    auto color = static_cast<ot::Color>(row < 9 ? row : 99);
    for (int x = 0; x < 80; x++) cells.drawCh(Vector(x, row), chars[(x + 7 * row) % n], color);
  }
  for (int x = 0; x < 80; x++) {
    auto channel = static_cast<unsigned char>(x * 3);
    cells.drawCh(Vector(x, 10), chars[(x * 5) % n], channel, 255 - channel, 128);
    cells.drawCh(Vector(x * 1.5f, 11.5f), chars[(x * 11) % n], static_cast<ot::Color>(1 + x % 7));
  }
  cells.setBackgroundColor(ot::BLUE);
  cells.drawString(Vector(40, 13), "Left @ justified", ot::LEFT_JUSTIFIED, ot::YELLOW);
  cells.drawString(Vector(40, 14), "Centred WWW", ot::CENTER_JUSTIFIED, ot::CYAN);
  cells.setBackgroundColor(ot::BLACK);
  cells.drawString(Vector(40, 15), "right |#|", ot::RIGHT_JUSTIFIED, ot::MAGENTA);

  // Shapes and a line over some cells and under others, the half see-through
  // one included. The square comes first: the turn it leaves on every later
  // shape then holds in both pictures.
  for (int x = 0; x < 30; x++) cells.drawCh(Vector(x, 17), '#', ot::GREEN);
  ot::Shape shape;
  shape.setType(ot::SHAPE_SQUARE);
  shape.setColor(ot::RED);
  shape.draw(Vector(20, 17));
  shape.setType(ot::SHAPE_CIRCLE);
  shape.draw(Vector(4, 17));
  ot::Line(Vector(0, 16), Vector(30, 19)).draw();
  for (int x = 3; x < 14; x += 2) cells.drawCh(Vector(x, 17), 'o', ot::WHITE);
  shape.setType(ot::SHAPE_TRIANGLE);
  shape.setColor(200, 100, 50);
  shape.setOpacity(128);
  shape.draw(Vector(12, 17));
  cells.drawString(Vector(18, 18), "over", ot::LEFT_JUSTIFIED, ot::RED);

  const float angles[] = {0, 30, 60, 90, 135, 270};
  for (int i = 0; i < 6; i++) {
    for (int j = 0; j < 4; j++) cells.drawCh(Vector(10 * i + 5 + j, 21), "@Wg|"[j], ot::WHITE, angles[i]);
  }
}

// Cells whose corners fall on whole pixels or halves, quarters and so on
// come out the same to the bit. Elsewhere (12.8 pixels a cell) a corner is
// summed once here rather than in the graphics card's matrix, which may shade
// a glyph's soft edge pixel one step apart.
struct Geometry {
  int pixels_x, pixels_y, chars_x, chars_y;
  const char* font_scale;
  bool exact;
};

void PrintTo(const Geometry& g, std::ostream* os) { *os << g.pixels_x << "x" << g.pixels_y; }

// How two pictures differ: in how many pixels, and by how much at most in a channel.
struct Difference {
  int pixels = 0;
  int most = 0;
};

Difference difference(const sf::Image& a, const sf::Image& b) {
  Difference d;
  const sf::Uint8* p = a.getPixelsPtr();
  const sf::Uint8* q = b.getPixelsPtr();
  for (size_t i = 0; i < a.getSize().x * a.getSize().y * 4; i += 4) {
    int most = 0;
    for (size_t c = i; c < i + 4; c++) most = std::max(most, std::abs(p[c] - q[c]));
    d.pixels += most > 0;
    d.most = std::max(d.most, most);
  }
  return d;
}

// The same screens drawn through drawCh and by the reference, on windows
// whose cells are whole and fractional pixels.
class DisplayManagerBatch : public ot_test::HeadlessEngine, public ::testing::WithParamInterface<Geometry> {
 protected:
  std::string configText() const override {
    const Geometry& g = GetParam();
    return "headless:false,\nnetworking:false,\nrandom_seed:1,\nwindow_horizontal_pixels:" +
           std::to_string(g.pixels_x) + ",\nwindow_vertical_pixels:" + std::to_string(g.pixels_y) +
           ",\nwindow_horizontal_chars:" + std::to_string(g.chars_x) +
           ",\nwindow_vertical_chars:" + std::to_string(g.chars_y) + ",\nfont_scale:" + g.font_scale +
           ",\nfont_file:" + ot_test::fontFile() + ",\n";
  }

  void SetUp() override {
    HeadlessEngine::SetUp();
    if (HasFatalFailure()) return;
    ASSERT_EQ(0, display().swapBuffers());
  }

  static ot::DisplayManager& display() { return ot::DisplayManager::getInstance(); }

  // What draw() leaves on the window, which is then cleared without a swap:
  // a shake stays as it is.
  static sf::Image picture(const std::function<void()>& draw) {
    draw();
    sf::RenderWindow& window = *display().getWindow();
    sf::Texture texture;
    texture.create(window.getSize().x, window.getSize().y);
    texture.update(window);
    window.clear(sf::Color::Black);
    return texture.copyToImage();
  }

  static void expectAlike(const sf::Image& expected, const sf::Image& drawn) {
    ASSERT_EQ(expected.getSize(), drawn.getSize());
    Difference d = difference(expected, drawn);
    if (GetParam().exact) {
      EXPECT_EQ(0, d.pixels);
    } else {
      EXPECT_GE(1, d.most);
      EXPECT_GE(expected.getSize().x * expected.getSize().y / 10000, static_cast<unsigned>(d.pixels));
    }
  }
};

TEST_P(DisplayManagerBatch, ScreenMatchesThePerCallDrawing) {
  ot_test::ReferenceCells reference;
  std::string shot = ot_test::writeTempFile("cells.png", "");
  for (bool shaken : {false, true}) {
    SCOPED_TRACE(shaken ? "shaken" : "still");
    if (shaken) {
      display().shake(2, 0, 5, false);  // x one of 3, 1, -1 and y 1
      ASSERT_EQ(0, display().swapBuffers());
    }
    sf::Image expected = picture([&] { drawScene(reference); });
    sf::Image screenshot;
    sf::Image drawn = picture([&] {
      drawScene(display());
      // Before anything else reads the window: the screenshot must hold the cells too.
      ASSERT_EQ(0, display().saveScreenshot(shot));
      ASSERT_TRUE(screenshot.loadFromFile(shot));
    });
    expectAlike(expected, drawn);
    EXPECT_EQ(0, difference(drawn, screenshot).pixels);
    // Not two blank screens: every colour shows in full somewhere.
    for (ot::Color color : {ot::RED, ot::GREEN, ot::YELLOW, ot::BLUE, ot::MAGENTA, ot::CYAN, ot::WHITE}) {
      bool found = false;
      for (unsigned y = 0; y < drawn.getSize().y && !found; y++) {
        for (unsigned x = 0; x < drawn.getSize().x && !found; x++) {
          found = drawn.getPixel(x, y) == ot::colorToSFML(color);
        }
      }
      EXPECT_TRUE(found) << color;
    }
  }
}

TEST_P(DisplayManagerBatch, CellsDrawnBeforeASwapStayInTheirFrame) {
  sf::Image blank = picture([] {});
  ASSERT_EQ(0, display().drawCh(Vector(10, 5), '@', ot::RED));
  ASSERT_EQ(0, display().drawString(Vector(10, 6), "abc", ot::LEFT_JUSTIFIED, ot::GREEN));
  ASSERT_EQ(0, display().swapBuffers());
  EXPECT_EQ(0, difference(blank, picture([] {})).pixels);
}

INSTANTIATE_TEST_SUITE_P(Windows, DisplayManagerBatch,
                         ::testing::Values(Geometry{640, 480, 80, 24, "1.5", true},
                                           Geometry{1000, 750, 80, 24, "2", true},
                                           Geometry{910, 700, 70, 25, "1", true},
                                           Geometry{1024, 768, 80, 24, "2", false}),
                         [](const auto& test) { return ::testing::PrintToString(test.param); });

}  // namespace
