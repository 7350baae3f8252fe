// Arbitrary bytes read as a serialized Object and, the same bytes, as a
// serialized ViewObject. Each reader then lives one frame in the world as a
// received object would: it is drawn, the world moves it, and it is deleted.
// The sprite "fuzz" is loaded, so that an animation naming it finds a sprite.

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "engine/presentation/ResourceManager.h"
#include "engine/presentation/ViewObject.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"
#include "tests/fuzz/FuzzEngine.h"

namespace {

const char* const SPRITE =
    "<HEADER>\nframes 2\nwidth 3\nheight 2\ncolor cyan\ntransparency #\n</HEADER>\n"
    "<BODY>\n/#\\\n\\_/\nend\n|#|\n\\_/\nend\n</BODY>\n<FOOTER>\nversion 1\n</FOOTER>\n";

void readAndLive(ot::Object* p_o, const std::string& bytes) {
  std::stringstream ss(bytes);
  p_o->deserialize(&ss);
  p_o->draw();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  if (!ot_fuzz::startEngine(false)) abort();
  const std::string path = ot_fuzz::tempPath("sprite.txt");
  ot_fuzz::writeFile(path, SPRITE, std::char_traits<char>::length(SPRITE));
  if (ot::ResourceManager::getInstance().loadSprite(path, "fuzz") != 0) abort();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  ot::WorldManager& world = ot::WorldManager::getInstance();
  auto* p_object = new ot::Object;
  auto* p_view = new ot::ViewObject;
  readAndLive(p_object, bytes);
  readAndLive(p_view, bytes);
  world.draw();
  world.markForDelete(p_object);
  world.markForDelete(p_view);
  world.update();
  if (world.getAllObjects(true).getCount() != 0) ot_fuzz::fail("a received object outlived its deletion");
  return 0;
}
