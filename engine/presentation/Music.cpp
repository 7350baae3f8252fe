#include "engine/presentation/Music.h"

#include "engine/core/LogManager.h"

namespace ot {

int Music::loadMusic(std::string filename) {
  // SFML says why on its own error stream; the ResourceManager logs the failure.
  return m_music.openFromFile(filename) ? 0 : -1;
}

void Music::play(bool loop) {
  LogManager::getInstance().writeLog(5, "Music::play(): Playing music.");
  m_music.play();
  m_music.setLoop(loop);
}

void Music::pause() {
  LogManager::getInstance().writeLog(5, "Music::pause(): Pausing music.");
  m_music.pause();
}

void Music::stop() {
  LogManager::getInstance().writeLog(5, "Music::stop(): Stopping music.");
  m_music.stop();
}

}  // namespace ot
