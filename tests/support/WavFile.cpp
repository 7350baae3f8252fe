#include "tests/support/WavFile.h"

#include <cstdint>

#include "tests/support/LogReader.h"

namespace ot_test {

namespace {

void put(std::string& out, uint32_t value, int bytes) {
  for (int i = 0; i < bytes; i++) out += static_cast<char>((value >> (8 * i)) & 0xff);
}

}  // namespace

std::string writeWavFile(const std::string& name, int samples) {
  const uint32_t data_size = static_cast<uint32_t>(samples) * 2;
  std::string bytes = "RIFF";
  put(bytes, 36 + data_size, 4);
  bytes += "WAVEfmt ";
  put(bytes, 16, 4);     // size of the format chunk
  put(bytes, 1, 2);      // PCM
  put(bytes, 1, 2);      // mono
  put(bytes, 8000, 4);   // samples per second
  put(bytes, 16000, 4);  // bytes per second
  put(bytes, 2, 2);      // bytes per sample
  put(bytes, 16, 2);     // bits per sample
  bytes += "data";
  put(bytes, data_size, 4);
  for (int i = 0; i < samples; i++) put(bytes, static_cast<uint32_t>((i % 40) * 800), 2);
  return writeTempFile(name, bytes);
}

}  // namespace ot_test
