#include "engine/presentation/ResourceManager.h"

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

ResourceManager::~ResourceManager() {
  for (int i = 0; i < m_sprite_count; i++) delete m_sprite[i];
}

int ResourceManager::startUp() {
  if (isStarted()) {
    LogManager::getInstance().writeLog("%s::startup(): Warning! %s already started.", getType().c_str(),
                                       getType().c_str());
    return -1;
  }
  m_sprite_count = 0;
  m_sound_count = 0;
  m_music_count = 0;
  Manager::startUp();
  LogManager::getInstance().writeLog(5, "RM::startUp(): successfully started.");
  return 0;
}

void ResourceManager::shutDown() {
  for (int i = 0; i < m_sprite_count; i++) {
    delete m_sprite[i];
    m_sprite[i] = nullptr;
  }
  m_sprite_count = 0;
  for (int i = 0; i < m_sound_count; i++) m_sound[i].stop();
  // Kept quirk: bounded by the sounds, not the music, so music past the
  // number of sounds keeps playing; games may count on music that outlasts
  // the engine's stop. The table's size still bounds it.
  for (int i = 0; i < m_sound_count && i < MAX_MUSICS; i++) m_music[i].stop();
  Manager::shutDown();
  LogManager::getInstance().writeLog(5, "RM::shutDown(): successfully stopped.");
}

int ResourceManager::unloadSprite(std::string label) {
  if (!isStarted()) {
    LogManager::getInstance().writeLog("%s not started!", getType().c_str());
    return -1;
  }
  for (int i = 0; i < m_sprite_count; i++) {
    if (m_sprite[i]->getLabel() != label) continue;
    delete m_sprite[i];
    for (int j = i; j < m_sprite_count - 1; j++) m_sprite[j] = m_sprite[j + 1];
    m_sprite_count--;
    m_sprite[m_sprite_count] = nullptr;
    return 0;
  }
  return -1;
}

Sprite* ResourceManager::getSprite(std::string label) const {
  LogManager& log = LogManager::getInstance();
  log.writeLog(5, "RM::getSprite(): Looking for sprite '%s'.", label.c_str());
  for (int i = 0; i < m_sprite_count; i++) {
    if (m_sprite[i]->getLabel() == label) return m_sprite[i];
  }
  log.writeLog("RM::getSprite(): Warning! Sprite '%s' not found.", label.c_str());
  return nullptr;
}

int ResourceManager::loadSound(std::string filename, std::string label) {
  LogManager& log = LogManager::getInstance();
  if (!isStarted()) {
    log.writeLog("%s not started!", getType().c_str());
    return -1;
  }
  if (m_sound_count == MAX_SOUNDS) {
    log.writeLog("RM::loadSound(): Error! Unable to add more sounds (max is %d).", MAX_SOUNDS);
    return -1;
  }
  if (m_sound[m_sound_count].loadSound(filename) == -1) {
    log.writeLog("RM::loadSound(): Error! Cannot load sound from file '%s'.", filename.c_str());
    return -1;
  }
  m_sound[m_sound_count].setLabel(label);
  log.writeLog(1, "RM::loadSound(): Sound '%s' successfully loaded.", label.c_str());
  m_sound_count++;
  return 0;
}

int ResourceManager::unloadSound(std::string label) {
  if (!isStarted()) {
    LogManager::getInstance().writeLog("%s not started!", getType().c_str());
    return -1;
  }
  for (int i = 0; i < m_sound_count; i++) {
    if (m_sound[i].getLabel() != label) continue;
    // Pointers from getSound now see the next sound along.
    for (int j = i; j < m_sound_count - 1; j++) m_sound[j] = m_sound[j + 1];
    m_sound_count--;
    return 0;
  }
  return -1;
}

Sound* ResourceManager::getSound(std::string label) {
  LogManager& log = LogManager::getInstance();
  log.writeLog(5, "RM::getSound(): Looking for sound '%s'.", label.c_str());
  for (int i = 0; i < m_sound_count; i++) {
    if (m_sound[i].getLabel() == label) return &m_sound[i];
  }
  log.writeLog("RM::getSound(): Warning! Sound '%s' not found.", label.c_str());
  return nullptr;
}

int ResourceManager::loadMusic(std::string filename, std::string label) {
  LogManager& log = LogManager::getInstance();
  if (!isStarted()) {
    log.writeLog("%s not started!", getType().c_str());
    return -1;
  }
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
  log.writeLog(1, "RM::loadMusic(): Music '%s' successfully loaded.", label.c_str());
  m_music_count++;
  return 0;
}

int ResourceManager::unloadMusic(std::string label) {
  if (!isStarted()) {
    LogManager::getInstance().writeLog("%s not started!", getType().c_str());
    return -1;
  }
  for (int i = 0; i < m_music_count; i++) {
    if (m_music[i].getLabel() != label) continue;
    // Kept quirk: the slot stays taken and is never reused, as music can't be moved.
    m_music[i].setLabel("");
    return 0;
  }
  return -1;
}

Music* ResourceManager::getMusic(std::string label) {
  LogManager& log = LogManager::getInstance();
  log.writeLog(5, "RM::getMusic(): Looking for music '%s'.", label.c_str());
  for (int i = 0; i < m_music_count; i++) {
    if (m_music[i].getLabel() == label) return &m_music[i];
  }
  log.writeLog("RM::getMusic(): Warning! Music '%s' not found.", label.c_str());
  return nullptr;
}

}  // namespace ot
