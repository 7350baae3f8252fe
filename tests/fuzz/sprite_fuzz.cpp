// A sprite file of either format, loaded through ResourceManager::loadSprite.
// A sprite that loads must hold what it claims: every frame as wide and high
// as the sprite, so that drawing it reads only its own characters.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "engine/presentation/ResourceManager.h"
#include "engine/presentation/Sprite.h"
#include "tests/fuzz/FuzzEngine.h"

namespace {

std::string g_path;
volatile int g_sink = 0;  // keeps the reads of every character

void checkSprite(const ot::Sprite* p_sprite) {
  if (p_sprite->getFrameCount() < 1 || p_sprite->getFrameCount() > p_sprite->getMaxFrameCount())
    ot_fuzz::fail("a loaded sprite has no frames or more than it has room for");
  for (int f = 0; f < p_sprite->getFrameCount(); f++) {
    const ot::Frame frame = p_sprite->getFrame(f);
    if (frame.getWidth() != p_sprite->getWidth() || frame.getHeight() != p_sprite->getHeight())
      ot_fuzz::fail("a frame's size differs from its sprite's");
    if (frame.getWidth() < 1 || frame.getHeight() < 1 ||
        frame.getString().size() != static_cast<std::size_t>(frame.getWidth()) * frame.getHeight())
      ot_fuzz::fail("a frame's text does not fill its width and height");
    // Every character through every mirroring, as drawing reads them.
    int sum = 0;
    for (int t = ot::NONE; t <= ot::BOTH; t++)
      for (int y = 0; y < frame.getHeight(); y++)
        for (int x = 0; x < frame.getWidth(); x++) sum += frame.getChar(x, y, static_cast<ot::Transform>(t));
    g_sink = sum;
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  if (!ot_fuzz::startEngine(false)) abort();
  g_path = ot_fuzz::tempPath("sprite.txt");
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ot_fuzz::writeFile(g_path, data, size);
  ot::ResourceManager& resources = ot::ResourceManager::getInstance();
  if (resources.loadSprite(g_path, "fuzz") != 0) return 0;
  const ot::Sprite* p_sprite = resources.getSprite("fuzz");
  if (!p_sprite) ot_fuzz::fail("a sprite that loaded is not found by its label");
  checkSprite(p_sprite);
  if (resources.unloadSprite("fuzz") != 0) ot_fuzz::fail("a loaded sprite does not unload");
  return 0;
}
