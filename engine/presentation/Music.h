#pragma once

#include <memory>
#include <string>
#include <utility>

namespace sf {
class Music;
}  // namespace sf

namespace ot {

// A music track under a label, streamed from its file while it plays. It
// can't be copied or moved, so an entry of the ResourceManager's table stays
// where it was loaded.
// Departure: the player is made by the first load, as making it
// opens the audio output; until then a Music is only a label.
class Music {
 public:
  Music();
  ~Music();
  Music(const Music&) = delete;
  Music& operator=(const Music&) = delete;

  // Opens the file for streaming; -1 when SFML can't open it. Without a
  // working device the file is only checked, and the music never plays.
  int loadMusic(const std::string& filename);
  std::string getLabel() const { return m_label; }
  void setLabel(std::string label) { m_label = std::move(label); }

  // Starts the track, repeating it unless loop is false.
  void play(bool loop = true);
  void pause();
  void stop();
  // The player; one with nothing open when no file was loaded, or when
  // there is no working device.
  sf::Music* getMusic();

 private:
  std::unique_ptr<sf::Music> m_p_music;  // made by the first load
  std::string m_label = "[Undefined]";
  bool m_deviceless = false;  // the player was made with no working device
};

}  // namespace ot
