#pragma once

#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "engine/core/Manager.h"
#include "engine/presentation/Frame.h"
#include "engine/presentation/Music.h"
#include "engine/presentation/Sound.h"

namespace ot {

class Sprite;

constexpr int MAX_SPRITES = 1000;
constexpr int MAX_SOUNDS = 100;
constexpr int MAX_MUSICS = 50;

// Holds every sprite, sound and music track under a label; the game loads
// them by file name at start-up and asks for them by label. Sprite files come
// in two text formats, told apart by the first line, and a bad file is
// refused with a trail of log lines saying why and where. Owns the sprites;
// animations hold plain pointers to them and aren't told when one is
// unloaded. Sounds and music sit by value in fixed tables, so pointers handed
// out point into those tables.
//
//   ResourceManager& rm = ResourceManager::getInstance();
//   rm.loadSprite("sprites/coin.txt", "coin");  // -1 and the reason in the log
//   object->setSprite("coin");                  // finds it by label
class ResourceManager : public Manager {
 public:
  static ResourceManager& getInstance();

  ~ResourceManager() override;
  int startUp() override;
  // Deletes every sprite; stops the sounds, and as many music entries as
  // there are sounds.
  void shutDown() override;

  // Loads a sprite file under a label; -1 (with the reason in the log) when
  // the file can't be read or is malformed.
  int loadSprite(const std::string& filename, const std::string& label);
  // -1 when no sprite has the label.
  int unloadSprite(std::string label);
  // The first sprite with the label, or null.
  Sprite* getSprite(const std::string& label) const;

  // The two formats' readers, from the file's present position and going on
  // with the file-wide line count; a new sprite, or null.
  std::unique_ptr<Sprite> loadSimpleSprite(std::ifstream& file);
  std::unique_ptr<Sprite> loadRobustSprite(std::ifstream& file);

  // Loads a sound file under a label; -1 when the table is full or the file
  // can't be read.
  int loadSound(const std::string& filename, const std::string& label);
  // -1 when no sound has the label. Later sounds move down one place.
  int unloadSound(const std::string& label);
  // The first sound with the label, or null.
  Sound* getSound(const std::string& label);

  // Opens a music file under a non-empty label; -1 when the table is full,
  // the label empty or the file unreadable.
  int loadMusic(const std::string& filename, const std::string& label);
  // Blanks the label; the slot stays taken. -1 when no music has the label.
  int unloadMusic(const std::string& label);
  // The first music with the label, or null.
  Music* getMusic(const std::string& label);

 private:
  ResourceManager();

  std::vector<std::unique_ptr<Sprite>> m_sprite;  // at most MAX_SPRITES
  Sound m_sound[MAX_SOUNDS];                      // the first m_sound_count in use
  int m_sound_count = 0;
  Music m_music[MAX_MUSICS];  // the first m_music_count taken, unloaded ones too
  int m_music_count = 0;
};

// The sprite readers' helpers, with the file-wide line count they share.
std::string getLine(std::ifstream& file, bool count);
std::vector<std::string> readData(std::ifstream& file, const std::string& tag);
int matchLineInt(std::vector<std::string>& data, const char* token);
std::string matchLineStr(std::vector<std::string>& data, const char* token);
Frame readFrame(std::vector<std::string>& data, int width, int height, int line_no);

}  // namespace ot
