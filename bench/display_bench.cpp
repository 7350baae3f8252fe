// One full screen of 80 by 24 characters a frame, drawn through drawCh as the
// engine draws (each cell recorded into the display's own batch, which the
// swap draws), against the same screen batched by hand into two vertex
// arrays: the background quads, and the glyph quads textured from the font's
// page. The hand-made batch is the floor of what SFML can do here. Both end
// each frame with swapBuffers. Needs a display: run it under Xvfb.
//
//   xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" ./display_bench

#include <benchmark/benchmark.h>

#include <SFML/Graphics.hpp>
#include <cstdio>
#include <fstream>
#include <string>

#include "bench/support/RatioReporter.h"
#include "engine/core/Config.h"
#include "engine/core/GameManager.h"
#include "engine/presentation/DisplayManager.h"

namespace {

using ot::DisplayManager;

constexpr int COLS = 80;
constexpr int ROWS = 24;
const char TEXT[] = "The quick brown fox jumps over the lazy dog. 0123456789 #@$%&*+=-|/\\<>[]{}";

std::string benchFont() {
  if (std::ifstream("ot-font.ttf").good()) return "ot-font.ttf";
  return "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf";
}

char cellChar(int x, int y) { return TEXT[(x + 7 * y) % (sizeof(TEXT) - 1)]; }
ot::Color cellColor(int x, int y) { return static_cast<ot::Color>(1 + (x + y) % 7); }

// Only the swap: the clear and the display that both screens pay as well.
void BM_EmptyFrame(benchmark::State& state) {
  DisplayManager& display = DisplayManager::getInstance();
  for (auto _ : state) display.swapBuffers();
}

void BM_DrawChScreen(benchmark::State& state) {
  DisplayManager& display = DisplayManager::getInstance();
  for (auto _ : state) {
    for (int y = 0; y < ROWS; y++) {
      for (int x = 0; x < COLS; x++) {
        display.drawCh(ot::Vector(static_cast<float>(x), static_cast<float>(y)), cellChar(x, y),
                       cellColor(x, y));
      }
    }
    display.swapBuffers();
  }
  state.SetItemsProcessed(state.iterations() * COLS * ROWS);
}

// The same cells as drawCh lays them out: rectangle from (-w/10, h/5) of the
// cell's corner, glyph on a baseline one character size below the corner.
void BM_BatchedScreen(benchmark::State& state) {
  DisplayManager& display = DisplayManager::getInstance();
  sf::RenderWindow& window = *display.getWindow();
  sf::Font font;
  font.loadFromFile(ot::Config::getInstance().getFontFile());
  const unsigned int size = display.cellFontSize();
  const float w = ot::charWidth(), h = ot::charHeight();
  const sf::Color back_color = ot::colorToSFML(ot::Config::getInstance().getWindowBackgroundColor());
  sf::VertexArray backs(sf::Quads, COLS * ROWS * 4);
  sf::VertexArray glyphs(sf::Quads, COLS * ROWS * 4);
  for (auto _ : state) {
    for (int y = 0; y < ROWS; y++) {
      for (int x = 0; x < COLS; x++) {
        size_t i = static_cast<size_t>(y * COLS + x) * 4;
        float px = static_cast<float>(x) * w, py = static_cast<float>(y) * h;
        float left = px - w / 10, top = py + h / 5;
        sf::Vertex* back = &backs[i];
        back[0] = sf::Vertex({left, top}, back_color);
        back[1] = sf::Vertex({left + w, top}, back_color);
        back[2] = sf::Vertex({left + w, top + h}, back_color);
        back[3] = sf::Vertex({left, top + h}, back_color);

        const sf::Glyph& glyph = font.getGlyph(static_cast<sf::Uint32>(cellChar(x, y)), size, true);
        sf::Color color = ot::colorToSFML(cellColor(x, y));
        float gx = px + glyph.bounds.left, gy = py + static_cast<float>(size) + glyph.bounds.top;
        float gw = glyph.bounds.width, gh = glyph.bounds.height;
        float u = static_cast<float>(glyph.textureRect.left), v = static_cast<float>(glyph.textureRect.top);
        float uw = static_cast<float>(glyph.textureRect.width),
              vh = static_cast<float>(glyph.textureRect.height);
        sf::Vertex* quad = &glyphs[i];
        quad[0] = sf::Vertex({gx, gy}, color, {u, v});
        quad[1] = sf::Vertex({gx + gw, gy}, color, {u + uw, v});
        quad[2] = sf::Vertex({gx + gw, gy + gh}, color, {u + uw, v + vh});
        quad[3] = sf::Vertex({gx, gy + gh}, color, {u, v + vh});
      }
    }
    window.draw(backs);
    window.draw(glyphs, &font.getTexture(size));
    display.swapBuffers();
  }
  state.SetItemsProcessed(state.iterations() * COLS * ROWS);
}

BENCHMARK(BM_EmptyFrame)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_DrawChScreen)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_BatchedScreen)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  ot::Config& config = ot::Config::getInstance();
  config.setHeadless(false);
  config.setNetworking(false);
  config.setFontFile(benchFont());
  config.setLogfile("/tmp/ostrel-display-bench.log");
  ot::GameManager& game = ot::GameManager::getInstance();
  if (game.startUp() != 0) {
    std::fprintf(stderr, "display_bench: the engine didn't start (a display is needed)\n");
    game.shutDown();
    return 1;
  }
  // Frames as fast as they draw: the figures measure drawing, not the monitor.
  DisplayManager::getInstance().getWindow()->setVerticalSyncEnabled(false);

  ot_bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double draw_ch = reporter.seconds("BM_DrawChScreen/real_time") * 1e3;
  double batched = reporter.seconds("BM_BatchedScreen/real_time") * 1e3;
  double empty = reporter.seconds("BM_EmptyFrame/real_time") * 1e3;
  if (draw_ch > 0 && batched > empty) {
    std::printf("80x24 screen: drawCh %.3f ms/frame, batched %.3f ms/frame, empty frame %.3f ms\n", draw_ch,
                batched, empty);
    std::printf(
        "drawCh / batched = %.2f per frame; %.2f for the drawing alone (empty frame taken off both)\n",
        draw_ch / batched, (draw_ch - empty) / (batched - empty));
  }
  game.shutDown();
  benchmark::Shutdown();
  return 0;
}
