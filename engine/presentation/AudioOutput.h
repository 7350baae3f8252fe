#pragma once

#include <memory>

namespace sf {
class SoundBuffer;
}

namespace ot {

// The output that every Sound and Music plays through. The first load opens
// it, not the engine's start-up, so that a program that makes no sound never
// touches the audio system; from then on it stays open until the process
// ends.
// Departure: where the machine has no sound device, a silent one stands in:
// loading and playing work as ever, nobody hears them, and the log says so in
// one line. Where a device exists but won't open, sounds still load (their
// files are read and checked) and never play. Whatever the audio libraries
// print while the device opens goes to the log rather than to the terminal.
class AudioOutput {
 public:
  static AudioOutput& getInstance();

  ~AudioOutput();
  AudioOutput(const AudioOutput&) = delete;
  AudioOutput& operator=(const AudioOutput&) = delete;

  // Opens the output on the first call; later calls do nothing.
  void open();
  bool isOpen() const { return m_open; }
  // Whether what plays is heard by nobody, as where there is no sound device.
  bool isSilent() const { return m_silent; }
  // Whether SFML's players can work: false once a device failed to open,
  // when every call they made would fail and complain.
  bool canPlay() const { return m_can_play; }

 private:
  AudioOutput() = default;

  bool m_open = false;
  bool m_silent = false;
  bool m_can_play = true;
  std::unique_ptr<sf::SoundBuffer> m_p_keeper;  // keeps SFML from opening its device again
};

}  // namespace ot
