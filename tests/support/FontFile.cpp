#include "tests/support/FontFile.h"

#include <cstdlib>

#include "engine/core/Config.h"

namespace ot_test {

std::string fontFile() {
  const char* source_dir = std::getenv("OSTREL_SOURCE_DIR");
  return source_dir ? ot::findFontFile(source_dir) : ot::SYSTEM_FONT_FILENAME;
}

}  // namespace ot_test
