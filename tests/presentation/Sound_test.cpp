#include "engine/presentation/Sound.h"

#include <gtest/gtest.h>

#include "tests/support/HeadlessEngine.h"
#include "tests/support/LogReader.h"
#include "tests/support/WavFile.h"

namespace {

using ot_test::logCount;

class SoundTest : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 5; }
};

TEST_F(SoundTest, UnloadedSoundOnlyLogsWhenPlayed) {
  ot::Sound sound;
  EXPECT_EQ("[Undefined]", sound.getLabel());
  sound.play(true);
  sound.pause();
  sound.stop();
  EXPECT_EQ(nullptr, sound.getSound().getBuffer());
  EXPECT_EQ(1, logCount(logMessages(), "Sound::play(): Playing sound."));
  size_t lines = logMessages().size();
  EXPECT_EQ(-1, sound.loadSound("/nonexistent.wav"));
  EXPECT_EQ(lines, logMessages().size());
}

TEST_F(SoundTest, ReloadKeepsThePlayer) {
  ot::Sound sound;
  ASSERT_EQ(0, sound.loadSound(ot_test::writeWavFile("a.wav", 100)));
  EXPECT_EQ(100u, sound.getSound().getBuffer()->getSampleCount());
  sound.play(true);
  EXPECT_TRUE(sound.getSound().getLoop());
  // A new player would have forgotten the looping.
  ASSERT_EQ(0, sound.loadSound(ot_test::writeWavFile("b.wav", 300)));
  EXPECT_EQ(300u, sound.getSound().getBuffer()->getSampleCount());
  EXPECT_TRUE(sound.getSound().getLoop());
  sound.stop();
}

TEST_F(SoundTest, CopiesPlayFromTheirOwnBuffer) {
  ot::Sound assigned;
  ASSERT_EQ(0, assigned.loadSound(ot_test::writeWavFile("a.wav", 100)));
  {
    ot::Sound original;
    ASSERT_EQ(0, original.loadSound(ot_test::writeWavFile("b.wav", 200)));
    original.setLabel("original");
    original.play(true);
    assigned = original;
    ot::Sound constructed(original);
    EXPECT_NE(original.getSound().getBuffer(), assigned.getSound().getBuffer());
    EXPECT_NE(original.getSound().getBuffer(), constructed.getSound().getBuffer());
    EXPECT_EQ(200u, constructed.getSound().getBuffer()->getSampleCount());
    original.stop();
  }
  // The original and its buffer are gone; the copy must not lean on them.
  EXPECT_EQ("original", assigned.getLabel());
  EXPECT_EQ(200u, assigned.getSound().getBuffer()->getSampleCount());
  EXPECT_TRUE(assigned.getSound().getLoop());
  assigned.play();
  assigned.stop();
  // An unloaded sound has no player to copy.
  assigned = ot::Sound();
  EXPECT_EQ(nullptr, assigned.getSound().getBuffer());
  EXPECT_EQ("[Undefined]", assigned.getLabel());
}

}  // namespace
