#include "engine/presentation/Sound.h"

#include <SFML/Audio.hpp>
#include <string>
#include <tuple>

#include "engine/core/LogManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/WavFile.h"

namespace {

using SoundTest = ot_test::HeadlessEngine;

sf::Uint64 samples(const ot::Sound& sound) {
  sf::Sound player = sound.getSound();
  return player.getBuffer() ? player.getBuffer()->getSampleCount() : 0;
}

TEST_F(SoundTest, UnloadedSoundOnlyLogs) {
  ot::LogManager::getInstance().setLogLevel(5);
  ot::Sound sound;
  EXPECT_EQ("[Undefined]", sound.getLabel());
  newLogMessages();
  sound.play(true);
  sound.pause();
  sound.stop();
  EXPECT_EQ(std::vector<std::string>{"Sound::play(): Playing sound."}, newLogMessages());
  EXPECT_EQ(nullptr, sound.getSound().getBuffer());
}

TEST_F(SoundTest, AFailedLoadKeepsTheSoundLoadedBefore) {
  ot::Sound sound;
  for (auto [path, result, kept] :
       {std::make_tuple(std::string("/nonexistent.wav"), -1, sf::Uint64{0}),
        std::make_tuple(ot_test::writeWavFile("a.wav", 100), 0, sf::Uint64{100}),
        std::make_tuple(std::string("/nonexistent.wav"), -1, sf::Uint64{100}),
        std::make_tuple(ot_test::writeTempFile("bad.wav", "RIFF....WAVEfmt garbage"), -1, sf::Uint64{100})}) {
    EXPECT_EQ(result, sound.loadSound(path)) << path;
    EXPECT_EQ(kept, samples(sound)) << path;
  }
}

TEST_F(SoundTest, CopiesPlayFromTheirOwnBuffer) {
  ot::Sound copy;
  ASSERT_EQ(0, copy.loadSound(ot_test::writeWavFile("a.wav", 100)));
  {
    ot::Sound original;
    ASSERT_EQ(0, original.loadSound(ot_test::writeWavFile("b.wav", 200)));
    original.setLabel("original");
    original.play(true);
    ASSERT_EQ(0, original.loadSound(ot_test::writeWavFile("c.wav", 300)));  // the same player, still looping
    copy = original;
    EXPECT_NE(original.getSound().getBuffer(), copy.getSound().getBuffer());
    ot::Sound constructed(original);
    EXPECT_EQ(std::make_pair(sf::Uint64{300}, true),
              std::make_pair(samples(constructed), constructed.getSound().getLoop()));
  }
  // The original and its buffer are gone; the copy plays its own.
  EXPECT_EQ(std::make_tuple(std::string("original"), sf::Uint64{300}, true),
            std::make_tuple(copy.getLabel(), samples(copy), copy.getSound().getLoop()));
  copy = ot::Sound();
  EXPECT_EQ(std::make_pair(std::string("[Undefined]"), sf::Uint64{0}),
            std::make_pair(copy.getLabel(), samples(copy)));
}

}  // namespace
