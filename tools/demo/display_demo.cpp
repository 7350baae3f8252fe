// Shows what the display draws: strings in the eight colours and the three
// justifications, a sprite built in code under each transform and the three
// shapes, saved as a screenshot; then a shaken frame, saved beside it with
// "-shaken" before the extension.
//
//   ostrel-display-demo [screenshot.png]     (default display-demo.png)
//
// Reads ot-font.ttf from the working directory, or the system's DejaVu Sans
// Mono when there is none.

#include <cstdio>
#include <string>

#include "engine/core/Config.h"
#include "engine/core/GameManager.h"
#include "engine/presentation/Animation.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/presentation/Frame.h"
#include "engine/presentation/Shape.h"
#include "engine/presentation/Sprite.h"

namespace {

using ot::DisplayManager;
using ot::Vector;

void drawColors(DisplayManager& display) {
  const char* names[] = {"Black", "Red", "Green", "Yellow", "Blue", "Magenta", "Cyan", "White"};
  display.drawString(Vector(2, 3), "Colours", ot::LEFT_JUSTIFIED, ot::WHITE);
  for (int c = ot::BLACK; c <= ot::WHITE; c++) {
    // Black on black shows only on another background: the cell's rectangle takes it.
    if (c == ot::BLACK) display.setBackgroundColor(ot::WHITE);
    display.drawString(Vector(4, static_cast<float>(5 + c)), names[c], ot::LEFT_JUSTIFIED,
                       static_cast<ot::Color>(c));
    if (c == ot::BLACK) display.setBackgroundColor(ot::BLACK);
  }
}

void drawJustified(DisplayManager& display) {
  display.drawString(Vector(22, 3), "Justified about x 30", ot::LEFT_JUSTIFIED, ot::WHITE);
  const ot::Justification justs[] = {ot::LEFT_JUSTIFIED, ot::CENTER_JUSTIFIED, ot::RIGHT_JUSTIFIED};
  const char* words[] = {"left", "center", "right"};
  for (int i = 0; i < 3; i++) {
    float y = static_cast<float>(5 + 2 * i);
    display.drawCh(Vector(30, y - 1), 'v', ot::YELLOW);
    display.drawString(Vector(30, y), words[i], justs[i], ot::GREEN);
  }
}

// A picture whose reading order shows at a glance; '.' is see-through.
void drawTransforms(DisplayManager& display, ot::Sprite& sprite) {
  display.drawString(Vector(2, 15), "One sprite, four transforms ('.' is transparent)", ot::LEFT_JUSTIFIED,
                     ot::WHITE);
  const ot::Transform transforms[] = {ot::NONE, ot::VERTICAL, ot::HORIZONTAL, ot::BOTH};
  const char* names[] = {"NONE", "VERTICAL", "HORIZONTAL", "BOTH"};
  for (int i = 0; i < 4; i++) {
    ot::Animation animation;
    animation.setSprite(&sprite);
    animation.setTransform(transforms[i]);
    float x = static_cast<float>(7 + 12 * i);
    animation.draw(Vector(x, 18));
    display.drawString(Vector(x, 21), names[i], ot::CENTER_JUSTIFIED, ot::WHITE);
  }
}

void drawShapes(DisplayManager& display) {
  display.drawString(Vector(56, 3), "Shapes", ot::LEFT_JUSTIFIED, ot::WHITE);
  // The square leaves the shared figure turned by 45 degrees, so it comes last.
  const int types[] = {ot::SHAPE_CIRCLE, ot::SHAPE_TRIANGLE, ot::SHAPE_SQUARE};
  const ot::Color colors[] = {ot::RED, ot::GREEN, ot::BLUE};
  const char* names[] = {"circle", "triangle", "square"};
  // The circle and the square stand about a cell right of their position.
  const float label_shift[] = {1, 0, 1};
  for (int i = 0; i < 3; i++) {
    float x = static_cast<float>(56 + 9 * i);
    ot::Shape shape;
    shape.setType(types[i]);
    shape.setColor(colors[i]);
    shape.draw(Vector(x, 5));
    display.drawString(Vector(x + label_shift[i], 8), names[i], ot::CENTER_JUSTIFIED, ot::WHITE);
  }
}

// In a shaken frame every character moves by a few pixels while the
// background rectangles stay on their cells, which the blue ones show.
void drawShaken(DisplayManager& display) {
  display.drawString(Vector(56, 15), "Shaken frame", ot::LEFT_JUSTIFIED, ot::WHITE);
  display.setBackgroundColor(ot::BLUE);
  ot::Frame box(9, 3, "+-------+| SHAKE |+-------+");
  box.draw(Vector(62, 18), ot::YELLOW, 0, ot::NONE);
  display.setBackgroundColor(ot::BLACK);
}

}  // namespace

int main(int argc, char* argv[]) {
  std::string out = argc > 1 ? argv[1] : "display-demo.png";
  ot::Config& config = ot::Config::getInstance();
  config.setHeadless(false);
  config.setNetworking(false);
  config.setWindowTitle("Ostrel display demo");
  config.setFontFile(ot::findFontFile());
  config.setLogfile("display-demo.log");
  config.setRandomSeed(1);  // the same shake on every run
  ot::GameManager& game = ot::GameManager::getInstance();
  if (game.startUp() != 0) {
    std::fprintf(stderr, "display demo: the engine didn't start; see the log\n");
    game.shutDown();
    return 1;
  }
  DisplayManager& display = DisplayManager::getInstance();

  ot::Sprite sprite(1);
  sprite.setLabel("demo");
  sprite.setWidth(5);
  sprite.setHeight(3);
  sprite.setColor(ot::CYAN);
  sprite.setTransparency('.');
  sprite.addFrame(ot::Frame(5, 3, "1234>5...\\6/..."));

  display.swapBuffers();  // a clean back buffer
  display.drawString(Vector(40, 1), "Ostrel display", ot::CENTER_JUSTIFIED, ot::MAGENTA);
  drawColors(display);
  drawJustified(display);
  drawTransforms(display, sprite);
  drawShapes(display);
  bool saved = display.saveScreenshot(out) == 0;

  // The swap that clears the back buffer also sets the next frame's shake.
  display.shake(2, 4, 1, false);
  display.swapBuffers();
  drawShaken(display);
  std::string shaken_out = out;
  size_t dot = shaken_out.rfind('.');
  shaken_out.insert(dot == std::string::npos ? shaken_out.size() : dot, "-shaken");
  saved = display.saveScreenshot(shaken_out) == 0 && saved;
  display.swapBuffers();
  game.shutDown();
  if (!saved) {
    std::fprintf(stderr, "display demo: can't write %s or %s\n", out.c_str(), shaken_out.c_str());
    return 1;
  }
  std::printf("display demo: screenshots in %s and %s\n", out.c_str(), shaken_out.c_str());
  return 0;
}
