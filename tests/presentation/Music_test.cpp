#include "engine/presentation/Music.h"

#include "engine/core/LogManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/WavFile.h"

using MusicTest = ot_test::HeadlessEngine;

TEST_F(MusicTest, PlaysLoopedUnlessToldOtherwiseAndAFailedLoadKeepsTheLabel) {
  ot::LogManager::getInstance().setLogLevel(5);
  ot::Music music;
  music.setLabel("theme");
  EXPECT_EQ(-1, music.loadMusic("/nonexistent.ogg"));
  ASSERT_EQ(0, music.loadMusic(ot_test::writeWavFile("a.wav", 400)));
  music.play();
  EXPECT_EQ(std::make_tuple(std::string("theme"), true, std::string("Music::play(): Playing music.")),
            std::make_tuple(music.getLabel(), music.getMusic()->getLoop(), logMessages().back()));
  music.play(false);
  music.stop();
  EXPECT_EQ(std::make_pair(false, std::string("Music::stop(): Stopping music.")),
            std::make_pair(music.getMusic()->getLoop(), logMessages().back()));
}
