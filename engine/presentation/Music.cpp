#include "engine/presentation/Music.h"

#include <SFML/Audio/InputSoundFile.hpp>
#include <SFML/Audio/Music.hpp>
#include <SFML/System/Err.hpp>

#include "engine/core/LogManager.h"
#include "engine/presentation/AudioOutput.h"

namespace ot {

Music::Music() = default;

Music::~Music() {
  if (!m_deviceless) return;
  // Without a device the player's last calls fail, and the log may be closed
  // by now: SFML's complaints would reach the terminal.
  std::streambuf* p_previous = sf::err().rdbuf(nullptr);
  m_p_music.reset();
  sf::err().rdbuf(p_previous);
}

int Music::loadMusic(const std::string& filename) {
  AudioOutput& output = AudioOutput::getInstance();
  output.open();
  // SFML says why in the log; the ResourceManager logs the failure.
  if (!output.canPlay()) return sf::InputSoundFile().openFromFile(filename) ? 0 : -1;
  return getMusic()->openFromFile(filename) ? 0 : -1;
}

void Music::play(bool loop) {
  LogManager::getInstance().writeLog(LOG_DETAIL, "Music::play(): Playing music.");
  // Without a device SFML's streaming thread would spin on failing calls.
  if (!m_p_music || m_deviceless) return;
  m_p_music->play();
  m_p_music->setLoop(loop);
}

void Music::pause() {
  LogManager::getInstance().writeLog(LOG_DETAIL, "Music::pause(): Pausing music.");
  if (m_p_music) m_p_music->pause();
}

void Music::stop() {
  LogManager::getInstance().writeLog(LOG_DETAIL, "Music::stop(): Stopping music.");
  if (m_p_music) m_p_music->stop();
}

sf::Music* Music::getMusic() {
  if (!m_p_music) {
    AudioOutput& output = AudioOutput::getInstance();
    output.open();
    m_deviceless = !output.canPlay();
    m_p_music = std::make_unique<sf::Music>();
  }
  return m_p_music.get();
}

}  // namespace ot
