#pragma once

#include <string>

namespace ot_test {

// The font the windowed tests draw with: the repository's ot-font.ttf when the
// set-up has put it there ($OSTREL_SOURCE_DIR), else the system's DejaVu Sans
// Mono that it is copied from. Independent of the working directory.
std::string fontFile();

}  // namespace ot_test
