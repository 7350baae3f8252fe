#include "engine/presentation/Sound.h"

#include "tests/support/HeadlessEngine.h"
#include "tests/support/WavFile.h"

using SoundTest = ot_test::HeadlessEngine;

TEST_F(SoundTest, ReloadKeepsThePlayerAndCopiesPlayFromTheirOwnBuffer) {
  ot::Sound copy;
  ASSERT_EQ(0, copy.loadSound(ot_test::writeWavFile("a.wav", 100)));
  {
    ot::Sound original;
    ASSERT_EQ(0, original.loadSound(ot_test::writeWavFile("b.wav", 200)));
    original.setLabel("original");
    original.play(true);
    ASSERT_EQ(0, original.loadSound(ot_test::writeWavFile("c.wav", 300)));  // a new player forgets the loop
    copy = original;
    EXPECT_NE(original.getSound().getBuffer(), copy.getSound().getBuffer());
  }
  EXPECT_EQ(std::make_tuple(std::string("original"), sf::Uint64{300}, true),
            std::make_tuple(copy.getLabel(), copy.getSound().getBuffer()->getSampleCount(),
                            copy.getSound().getLoop()));
}
