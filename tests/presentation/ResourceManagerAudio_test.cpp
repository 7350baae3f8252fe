// The sound and music tables of the ResourceManager; its sprite files are
// tested in ResourceManager_test.cpp.

#include <SFML/Audio.hpp>
#include <functional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "engine/core/LogManager.h"
#include "engine/presentation/ResourceManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/WavFile.h"

namespace {

using Lines = std::vector<std::string>;

class ResourceManagerAudio : public ot_test::HeadlessEngine {
 protected:
  ot::ResourceManager& rm = ot::ResourceManager::getInstance();
  static sf::Uint64 samples(ot::Sound* p_sound) {
    sf::Sound player = p_sound->getSound();
    return player.getBuffer() ? player.getBuffer()->getSampleCount() : 0;
  }
};

TEST_F(ResourceManagerAudio, BadAudioFilesAreRefusedWithTheirLine) {
  const std::string wav = ot_test::writeWavFile("a.wav", 100), bad = ot_test::writeTempFile("bad.ogg", "x");
  ot::LogManager::getInstance().setLogLevel(1);
  struct Case {
    std::function<int()> load;
    int result;
    std::string line;
  };
  for (const Case& c :
       std::vector<Case>{{[&] { return rm.loadSound(wav, "bang"); }, 0,
                          "RM::loadSound(): Sound 'bang' successfully loaded."},
                         {[&] { return rm.loadSound("/nonexistent.wav", "x"); }, -1,
                          "RM::loadSound(): Error! Cannot load sound from file '/nonexistent.wav'."},
                         {[&] { return rm.loadSound(bad, "x"); }, -1,
                          "RM::loadSound(): Error! Cannot load sound from file '" + bad + "'."},
                         {[&] { return rm.loadMusic(wav, "theme"); }, 0,
                          "RM::loadMusic(): Music 'theme' successfully loaded."},
                         {[&] { return rm.loadMusic("/nonexistent.ogg", "x"); }, -1,
                          "RM::loadmusic(): Error! Cannot load music from file '/nonexistent.ogg'."},
                         {[&] { return rm.loadMusic(wav, ""); }, -1,
                          "RM::loadMusic(): Error! Must provide label for music."}}) {
    newLogMessages();
    EXPECT_EQ(c.result, c.load()) << c.line;
    EXPECT_TRUE(ot_test::logHas(newLogMessages(), c.line)) << c.line;
  }
  // The failures took no slot: the next loads land right behind the first.
  ASSERT_EQ(0, rm.loadSound(ot_test::writeWavFile("b.wav", 200), "second"));
  EXPECT_EQ(rm.getSound("bang") + 1, rm.getSound("second"));
  ASSERT_EQ(0, rm.loadMusic(wav, "second"));
  EXPECT_EQ(rm.getMusic("theme") + 1, rm.getMusic("second"));
}

TEST_F(ResourceManagerAudio, LabelLookupTakesTheFirstMatch) {
  const std::string wav = ot_test::writeWavFile("a.wav", 100);
  ASSERT_EQ(0, rm.loadSound(wav, "twice"));
  ASSERT_EQ(0, rm.loadSound(wav, "twice"));
  ASSERT_EQ(0, rm.loadMusic(wav, "twice"));
  ot::LogManager::getInstance().setLogLevel(5);
  newLogMessages();
  EXPECT_EQ("twice", rm.getSound("twice")->getLabel());
  EXPECT_EQ(0, rm.unloadSound("twice"));
  EXPECT_EQ("twice", rm.getSound("twice")->getLabel());  // the second one, moved down
  EXPECT_EQ(nullptr, rm.getSound("none"));
  EXPECT_EQ(nullptr, rm.getMusic("none"));
  EXPECT_EQ(
      (Lines{"RM::getSound(): Looking for sound 'twice'.", "RM::getSound(): Looking for sound 'twice'.",
             "RM::getSound(): Looking for sound 'none'.", "RM::getSound(): Warning! Sound 'none' not found.",
             "RM::getMusic(): Looking for music 'none'.",
             "RM::getMusic(): Warning! Music 'none' not found."}),
      newLogMessages());
}

TEST_F(ResourceManagerAudio, UnloadingASoundMovesTheRestDown) {
  const std::string short_wav = ot_test::writeWavFile("a.wav", 100);
  ASSERT_EQ(0, rm.loadSound(short_wav, "first"));
  ASSERT_EQ(0, rm.loadSound(ot_test::writeWavFile("b.wav", 200), "middle"));
  ASSERT_EQ(0, rm.loadSound(ot_test::writeWavFile("c.wav", 300), "last"));
  for (int i = 3; i < ot::MAX_SOUNDS; i++) ASSERT_EQ(0, rm.loadSound(short_wav, std::to_string(i)));
  newLogMessages();
  EXPECT_EQ(-1, rm.loadSound(short_wav, "over"));
  EXPECT_EQ(Lines{"RM::loadSound(): Error! Unable to add more sounds (max is 100)."}, newLogMessages());

  ot::Sound* p_first_slot = rm.getSound("first");
  EXPECT_EQ(-1, rm.unloadSound("absent"));
  EXPECT_EQ(0, rm.unloadSound("first"));
  // A pointer handed out earlier now sees the next sound along.
  EXPECT_EQ(std::make_pair(std::string("middle"), sf::Uint64{200}),
            std::make_pair(p_first_slot->getLabel(), samples(p_first_slot)));
  EXPECT_EQ(sf::Uint64{300}, samples(rm.getSound("last")));
  EXPECT_NE(p_first_slot->getSound().getBuffer(), rm.getSound("last")->getSound().getBuffer());
  rm.getSound("middle")->play();
  EXPECT_EQ(0, rm.loadSound(short_wav, "over"));
  EXPECT_EQ(Lines{}, newLogMessages());
}

TEST_F(ResourceManagerAudio, UnloadedMusicSlotIsNeverReused) {
  const std::string wav = ot_test::writeWavFile("a.wav", 100);
  for (int i = 0; i < ot::MAX_MUSICS; i++) ASSERT_EQ(0, rm.loadMusic(wav, "m" + std::to_string(i)));
  EXPECT_EQ(-1, rm.unloadMusic("absent"));
  EXPECT_EQ(0, rm.unloadMusic("m7"));
  newLogMessages();
  EXPECT_EQ(nullptr, rm.getMusic("m7"));
  EXPECT_EQ(-1, rm.loadMusic(wav, "more"));
  EXPECT_EQ((Lines{"RM::getMusic(): Warning! Music 'm7' not found.",
                   "RM::loadMusic(): Error! Unable to add more musics (max is 50)."}),
            newLogMessages());
}

TEST_F(ResourceManagerAudio, ShutDownStopsNoMoreMusicThanThereAreSounds) {
  const std::string wav = ot_test::writeWavFile("a.wav", 40000);
  ASSERT_EQ(0, rm.loadSound(wav, "sound"));
  ASSERT_EQ(0, rm.loadMusic(wav, "stopped"));
  ASSERT_EQ(0, rm.loadMusic(wav, "left playing"));
  rm.getMusic("stopped")->play();
  rm.getMusic("left playing")->play();
  rm.shutDown();
  EXPECT_EQ(sf::SoundSource::Stopped, rm.getMusic("stopped")->getMusic()->getStatus());
  EXPECT_EQ(sf::SoundSource::Playing, rm.getMusic("left playing")->getMusic()->getStatus());
  rm.getMusic("left playing")->stop();
  rm.startUp();
}

TEST_F(ResourceManagerAudio, NothingIsLoadedBeforeTheStart) {
  const std::string wav = ot_test::writeWavFile("a.wav", 100);
  rm.shutDown();
  newLogMessages();
  EXPECT_EQ(std::make_tuple(-1, -1, -1, -1), std::make_tuple(rm.loadSound(wav, "s"), rm.unloadSound("s"),
                                                             rm.loadMusic(wav, "m"), rm.unloadMusic("m")));
  EXPECT_EQ(Lines(4, "ResourceManager not started!"), newLogMessages());
  rm.startUp();
}

}  // namespace
