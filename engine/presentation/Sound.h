#pragma once

#include <memory>
#include <string>
#include <utility>

namespace sf {
class Sound;
class SoundBuffer;
}  // namespace sf

namespace ot {

// A sound effect held wholly in memory under a label, kept by value in the
// ResourceManager's table.
// Departure: buffer and player are made by the first load, as
// making either opens the audio output; until then a Sound is only a label.
// A copy gets its own buffer and a player bound to it, so entries can be
// moved down the table by assignment.
class Sound {
 public:
  Sound();
  Sound(const Sound& other);
  Sound& operator=(const Sound& other);
  ~Sound();

  // Reads the file into the buffer, reusing buffer and player on a reload;
  // -1 when SFML can't read it, with the sound loaded before left as it was.
  int loadSound(const std::string& filename);
  std::string getLabel() const { return m_label; }
  void setLabel(std::string label) { m_label = std::move(label); }

  // Starts the sound, repeating it when loop is set; nothing but the log line
  // when no sound is loaded.
  void play(bool loop = false);
  void pause();
  void stop();
  // A copy of the player; a player with no buffer when nothing is loaded.
  sf::Sound getSound() const;

 private:
  std::unique_ptr<sf::SoundBuffer> m_p_sound_buffer;  // made by the first load
  std::unique_ptr<sf::Sound> m_p_sound;               // plays *m_p_sound_buffer, so goes first
  std::string m_label = "[Undefined]";
};

}  // namespace ot
