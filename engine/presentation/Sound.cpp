#include "engine/presentation/Sound.h"

#include <new>

#include <SFML/Audio/InputSoundFile.hpp>
#include <SFML/Audio/Sound.hpp>
#include <SFML/Audio/SoundBuffer.hpp>

#include "engine/core/LogManager.h"
#include "engine/presentation/AudioOutput.h"

namespace ot {

Sound::Sound() = default;

Sound::Sound(const Sound& other) : m_label(other.m_label) {
  if (other.m_p_sound_buffer) m_p_sound_buffer = std::make_unique<sf::SoundBuffer>(*other.m_p_sound_buffer);
  if (other.m_p_sound) {
    m_p_sound.reset(new (std::nothrow) sf::Sound(*other.m_p_sound));
    if (m_p_sound) m_p_sound->setBuffer(*m_p_sound_buffer);
  }
}

Sound& Sound::operator=(const Sound& other) {
  if (this == &other) return *this;
  m_label = other.m_label;
  if (!other.m_p_sound_buffer) {
    m_p_sound.reset();
    m_p_sound_buffer.reset();
    return *this;
  }
  // Assigning a buffer detaches the players that used the old one, so the
  // player is bound again afterwards.
  if (m_p_sound_buffer)
    *m_p_sound_buffer = *other.m_p_sound_buffer;
  else
    m_p_sound_buffer = std::make_unique<sf::SoundBuffer>(*other.m_p_sound_buffer);
  if (!other.m_p_sound) {
    m_p_sound.reset();
    return *this;
  }
  if (m_p_sound)
    *m_p_sound = *other.m_p_sound;  // takes the other's volume, pitch and the like
  else
    m_p_sound.reset(new (std::nothrow) sf::Sound(*other.m_p_sound));
  if (m_p_sound) m_p_sound->setBuffer(*m_p_sound_buffer);
  return *this;
}

Sound::~Sound() = default;

int Sound::loadSound(const std::string& filename) {
  AudioOutput& output = AudioOutput::getInstance();
  output.open();
  // Without a working device the file is only read, so that a bad one is still refused.
  if (!output.canPlay()) return sf::InputSoundFile().openFromFile(filename) ? 0 : -1;
  if (!m_p_sound_buffer) m_p_sound_buffer = std::make_unique<sf::SoundBuffer>();
  if (!m_p_sound_buffer->loadFromFile(filename)) return -1;
  if (m_p_sound) {
    m_p_sound->setBuffer(*m_p_sound_buffer);
    return 0;
  }
  m_p_sound.reset(new (std::nothrow) sf::Sound(*m_p_sound_buffer));
  if (!m_p_sound) {
    LogManager::getInstance().writeLog("Sound::loadSound(): Error! Cannot allocate m_p_sound.");
    return -1;
  }
  return 0;
}

void Sound::play(bool loop) {
  LogManager::getInstance().writeLog(LOG_DETAIL, "Sound::play(): Playing sound.");
  if (!m_p_sound) return;
  m_p_sound->play();
  m_p_sound->setLoop(loop);
}

void Sound::pause() {
  if (m_p_sound) m_p_sound->pause();
}

void Sound::stop() {
  if (m_p_sound) m_p_sound->stop();
}

sf::Sound Sound::getSound() const {
  if (!m_p_sound) {
    AudioOutput::getInstance().open();
    return sf::Sound();
  }
  return *m_p_sound;
}

}  // namespace ot
