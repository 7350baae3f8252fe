// Writes the sounds of the splash demo, synthesised here so that the project
// carries no recording from elsewhere: a short chime, and a short tune that
// loops without a click. Both are 16-bit mono WAV files at 22050 Hz.
//
//   ostrel-make-sounds <folder>     (writes chime.wav and tune.wav there)

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr int RATE = 22050;
constexpr double PI = 3.14159265358979323846;

void put(std::ofstream& out, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; i++) out.put(static_cast<char>((value >> (8 * i)) & 0xff));
}

bool writeWav(const std::string& path, const std::vector<double>& samples) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  const auto data_size = static_cast<std::uint32_t>(samples.size() * 2);
  out << "RIFF";
  put(out, 36 + data_size, 4);
  out << "WAVEfmt ";
  put(out, 16, 4);
  put(out, 1, 2);  // PCM
  put(out, 1, 2);  // mono
  put(out, RATE, 4);
  put(out, RATE * 2, 4);
  put(out, 2, 2);
  put(out, 16, 2);
  out << "data";
  put(out, data_size, 4);
  for (double sample : samples) {
    double clipped = sample > 1.0 ? 1.0 : (sample < -1.0 ? -1.0 : sample);
    put(out, static_cast<std::uint16_t>(static_cast<std::int16_t>(clipped * 32767.0)), 2);
  }
  return static_cast<bool>(out);
}

// A bell-like strike: a tone and its fifth above, dying away.
std::vector<double> chime() {
  std::vector<double> samples(RATE * 2 / 5);
  for (std::size_t i = 0; i < samples.size(); i++) {
    double t = static_cast<double>(i) / RATE;
    double attack = t < 0.005 ? t / 0.005 : 1.0;
    double decay = std::exp(-t * 9.0);
    samples[i] = 0.6 * attack * decay * (std::sin(2 * PI * 1046.5 * t) + 0.5 * std::sin(2 * PI * 1568.0 * t));
  }
  return samples;
}

// Eight notes over a held low note; every note fades out before the next,
// so the end meets the start cleanly when the track repeats.
std::vector<double> tune() {
  const double notes[] = {261.6, 329.6, 392.0, 440.0, 392.0, 329.6, 293.7, 392.0};
  const double note_length = 0.375;
  std::vector<double> samples;
  for (double frequency : notes) {
    int count = static_cast<int>(note_length * RATE);
    for (int i = 0; i < count; i++) {
      double t = static_cast<double>(i) / RATE;
      double envelope =
          std::min(1.0, t / 0.01) * std::min(1.0, (note_length - t) / 0.05) * std::exp(-t * 3.0);
      double melody = std::sin(2 * PI * frequency * t) + 0.3 * std::sin(2 * PI * 2 * frequency * t);
      double bass =
          std::sin(2 * PI * 130.8 * t) * std::min(1.0, (note_length - t) / 0.05) * std::min(1.0, t / 0.01);
      samples.push_back(0.35 * envelope * melody + 0.15 * bass);
    }
  }
  return samples;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: ostrel-make-sounds <folder>\n");
    return 2;
  }
  std::string folder = argv[1];
  if (!writeWav(folder + "/chime.wav", chime()) || !writeWav(folder + "/tune.wav", tune())) {
    std::fprintf(stderr, "ostrel-make-sounds: can't write into %s\n", folder.c_str());
    return 1;
  }
  return 0;
}
