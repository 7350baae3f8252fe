#include "engine/presentation/Music.h"

#include <SFML/Audio.hpp>
#include <string>
#include <vector>

#include "engine/core/LogManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/WavFile.h"

namespace {

using MusicTest = ot_test::HeadlessEngine;

TEST_F(MusicTest, PlaysLoopedUnlessToldOtherwise) {
  ot::LogManager::getInstance().setLogLevel(5);
  ot::Music music;
  music.setLabel("theme");
  EXPECT_EQ(-1, music.loadMusic("/nonexistent.ogg"));
  EXPECT_EQ("theme", music.getLabel());
  ASSERT_EQ(0, music.loadMusic(ot_test::writeWavFile("a.wav", 40000)));
  sf::Music* p_player = music.getMusic();
  struct Step {
    void (*act)(ot::Music&);
    sf::SoundSource::Status status;
    bool loop;
    const char* line;
  };
  // Where there is no sound device the silent one plays as well, for nobody.
  for (const Step& step : std::vector<Step>{
           {[](ot::Music& m) { m.play(); }, sf::SoundSource::Playing, true, "Music::play(): Playing music."},
           {[](ot::Music& m) { m.pause(); }, sf::SoundSource::Paused, true, "Music::pause(): Pausing music."},
           {[](ot::Music& m) { m.play(false); }, sf::SoundSource::Playing, false,
            "Music::play(): Playing music."},
           {[](ot::Music& m) { m.stop(); }, sf::SoundSource::Stopped, false,
            "Music::stop(): Stopping music."}}) {
    step.act(music);
    EXPECT_EQ(std::make_tuple(step.status, step.loop, std::string(step.line)),
              std::make_tuple(p_player->getStatus(), p_player->getLoop(), logMessages().back()));
  }
}

TEST_F(MusicTest, UnloadedMusicOnlyLogs) {
  ot::LogManager::getInstance().setLogLevel(5);
  ot::Music music;
  EXPECT_EQ("[Undefined]", music.getLabel());
  newLogMessages();
  music.play();
  music.pause();
  music.stop();
  EXPECT_EQ((std::vector<std::string>{"Music::play(): Playing music.", "Music::pause(): Pausing music.",
                                      "Music::stop(): Stopping music."}),
            newLogMessages());
  EXPECT_EQ(sf::SoundSource::Stopped, music.getMusic()->getStatus());
}

}  // namespace
