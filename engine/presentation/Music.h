#pragma once

#include <string>
#include <utility>

#include <SFML/Audio/Music.hpp>

namespace ot {

// A music track under a label, streamed from its file while it plays. It
// can't be copied or moved, so an entry of the ResourceManager's table stays
// where it was loaded.
class Music {
 public:
  Music() = default;
  Music(const Music&) = delete;
  Music& operator=(const Music&) = delete;

  // Opens the file for streaming; -1 when SFML can't open it.
  int loadMusic(std::string filename);
  std::string getLabel() const { return m_label; }
  void setLabel(std::string label) { m_label = std::move(label); }

  // Starts the track, repeating it unless loop is false.
  void play(bool loop = true);
  void pause();
  void stop();
  sf::Music* getMusic() { return &m_music; }

 private:
  sf::Music m_music;
  std::string m_label = "[Undefined]";
};

}  // namespace ot
