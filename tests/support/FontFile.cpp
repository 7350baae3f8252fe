#include "tests/support/FontFile.h"

#include <cstdlib>
#include <fstream>

namespace ot_test {

std::string fontFile() {
  if (const char* source_dir = std::getenv("OSTREL_SOURCE_DIR")) {
    std::string path = std::string(source_dir) + "/ot-font.ttf";
    if (std::ifstream(path).good()) return path;
  }
  return "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf";
}

}  // namespace ot_test
