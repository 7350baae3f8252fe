#include "engine/presentation/Music.h"

#include <gtest/gtest.h>

#include "tests/support/HeadlessEngine.h"
#include "tests/support/LogReader.h"
#include "tests/support/WavFile.h"

namespace {

using ot_test::logHas;

class MusicTest : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 5; }
};

TEST_F(MusicTest, FailedLoadKeepsTheLabel) {
  ot::Music music;
  EXPECT_EQ("[Undefined]", music.getLabel());
  music.setLabel("theme");
  size_t lines = logMessages().size();
  EXPECT_EQ(-1, music.loadMusic("/nonexistent.ogg"));
  EXPECT_EQ("theme", music.getLabel());
  EXPECT_EQ(lines, logMessages().size());
}

TEST_F(MusicTest, PlaysLoopedUnlessToldOtherwise) {
  ot::Music music;
  ASSERT_EQ(0, music.loadMusic(ot_test::writeWavFile("a.wav", 400)));
  music.play();
  EXPECT_TRUE(music.getMusic()->getLoop());
  EXPECT_EQ(sf::SoundSource::Playing, music.getMusic()->getStatus());
  music.pause();
  EXPECT_EQ(sf::SoundSource::Paused, music.getMusic()->getStatus());
  music.stop();
  EXPECT_EQ(sf::SoundSource::Stopped, music.getMusic()->getStatus());
  music.play(false);
  EXPECT_FALSE(music.getMusic()->getLoop());
  music.stop();
  std::vector<std::string> messages = logMessages();
  EXPECT_TRUE(logHas(messages, "Music::play(): Playing music."));
  EXPECT_TRUE(logHas(messages, "Music::pause(): Pausing music."));
  EXPECT_TRUE(logHas(messages, "Music::stop(): Stopping music."));
}

}  // namespace
