#include "engine/presentation/ResourceManager.h"

#include <algorithm>

#include "engine/core/LogManager.h"
#include "engine/presentation/AudioOutput.h"
#include "engine/presentation/Sprite.h"

// The tables and the sound and music side; the sprite files are read in
// ResourceManagerSprite.cpp.

namespace ot {

ResourceManager::ResourceManager() {
  setType("ResourceManager");
  // Finished before this manager is, so destroyed after it: the audio output
  // closes only once the sounds and music of the tables are gone.
  AudioOutput::getInstance();
}

ResourceManager& ResourceManager::getInstance() {
  static ResourceManager resource_manager;
  return resource_manager;
}

ResourceManager::~ResourceManager() = default;

int ResourceManager::startUp() {
  if (refuseSecondStart()) return -1;
  m_sprite.clear();
  m_sound_count = 0;
  m_music_count = 0;
  Manager::startUp();
  LogManager::getInstance().writeLog(LOG_DETAIL, "RM::startUp(): successfully started.");
  return 0;
}

void ResourceManager::shutDown() {
  m_sprite.clear();
  for (int i = 0; i < m_sound_count; i++) m_sound[i].stop();
  // Kept quirk: bounded by the sounds, not the music, so music past the
  // number of sounds keeps playing; games may count on music that outlasts
  // the engine's stop. The table's size still bounds it.
  for (int i = 0; i < m_sound_count && i < MAX_MUSICS; i++) m_music[i].stop();
  Manager::shutDown();
  LogManager::getInstance().writeLog(LOG_DETAIL, "RM::shutDown(): successfully stopped.");
}

int ResourceManager::unloadSprite(std::string label) {
  if (refuseUntilStarted()) return -1;
  auto found = std::find_if(m_sprite.begin(), m_sprite.end(),
                            [&](const std::unique_ptr<Sprite>& p_s) { return p_s->getLabel() == label; });
  if (found == m_sprite.end()) return -1;
  m_sprite.erase(found);
  return 0;
}

Sprite* ResourceManager::getSprite(const std::string& label) const {
  LogManager& log = LogManager::getInstance();
  log.writeLog(LOG_DETAIL, "RM::getSprite(): Looking for sprite '%s'.", label.c_str());
  for (const std::unique_ptr<Sprite>& p_sprite : m_sprite) {
    if (p_sprite->getLabel() == label) return p_sprite.get();
  }
  log.writeLog("RM::getSprite(): Warning! Sprite '%s' not found.", label.c_str());
  return nullptr;
}

int ResourceManager::loadSound(const std::string& filename, const std::string& label) {
  LogManager& log = LogManager::getInstance();
  if (refuseUntilStarted()) return -1;
  if (m_sound_count == MAX_SOUNDS) {
    log.writeLog("RM::loadSound(): Error! Unable to add more sounds (max is %d).", MAX_SOUNDS);
    return -1;
  }
  if (m_sound[m_sound_count].loadSound(filename) == -1) {
    log.writeLog("RM::loadSound(): Error! Cannot load sound from file '%s'.", filename.c_str());
    return -1;
  }
  m_sound[m_sound_count].setLabel(label);
  log.writeLog(LOG_INFO, "RM::loadSound(): Sound '%s' successfully loaded.", label.c_str());
  m_sound_count++;
  return 0;
}

int ResourceManager::unloadSound(const std::string& label) {
  if (refuseUntilStarted()) return -1;
  for (int i = 0; i < m_sound_count; i++) {
    if (m_sound[i].getLabel() != label) continue;
    // Pointers from getSound now see the next sound along.
    for (int j = i; j < m_sound_count - 1; j++) m_sound[j] = m_sound[j + 1];
    m_sound_count--;
    return 0;
  }
  return -1;
}

Sound* ResourceManager::getSound(const std::string& label) {
  LogManager& log = LogManager::getInstance();
  log.writeLog(LOG_DETAIL, "RM::getSound(): Looking for sound '%s'.", label.c_str());
  for (int i = 0; i < m_sound_count; i++) {
    if (m_sound[i].getLabel() == label) return &m_sound[i];
  }
  log.writeLog("RM::getSound(): Warning! Sound '%s' not found.", label.c_str());
  return nullptr;
}

int ResourceManager::loadMusic(const std::string& filename, const std::string& label) {
  LogManager& log = LogManager::getInstance();
  if (refuseUntilStarted()) return -1;
  if (m_music_count == MAX_MUSICS) {
    log.writeLog("RM::loadMusic(): Error! Unable to add more musics (max is %d).", MAX_MUSICS);
    return -1;
  }
  // An unloaded slot carries the empty label, so that label can't be asked for.
  if (label.empty()) {
    log.writeLog("RM::loadMusic(): Error! Must provide label for music.");
    return -1;
  }
  if (m_music[m_music_count].loadMusic(filename) == -1) {
    // Kept quirk: "loadmusic" in lower case; log readers search for it.
    log.writeLog("RM::loadmusic(): Error! Cannot load music from file '%s'.", filename.c_str());
    return -1;
  }
  m_music[m_music_count].setLabel(label);
  log.writeLog(LOG_INFO, "RM::loadMusic(): Music '%s' successfully loaded.", label.c_str());
  m_music_count++;
  return 0;
}

int ResourceManager::unloadMusic(const std::string& label) {
  if (refuseUntilStarted()) return -1;
  for (int i = 0; i < m_music_count; i++) {
    if (m_music[i].getLabel() != label) continue;
    // Kept quirk: the slot stays taken and is never reused, as music can't be moved.
    m_music[i].setLabel("");
    return 0;
  }
  return -1;
}

Music* ResourceManager::getMusic(const std::string& label) {
  LogManager& log = LogManager::getInstance();
  log.writeLog(LOG_DETAIL, "RM::getMusic(): Looking for music '%s'.", label.c_str());
  for (int i = 0; i < m_music_count; i++) {
    if (m_music[i].getLabel() == label) return &m_music[i];
  }
  log.writeLog("RM::getMusic(): Warning! Music '%s' not found.", label.c_str());
  return nullptr;
}

}  // namespace ot
