#pragma once

#include <string>

namespace ot_test {

// Writes a short 16-bit mono PCM WAV file of the given number of samples (a
// saw tooth at 8000 Hz) to a temporary file; its path.
std::string writeWavFile(const std::string& name, int samples);

}  // namespace ot_test
