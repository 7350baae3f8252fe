#include "engine/presentation/ResourceManager.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "engine/presentation/Sprite.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/LogReader.h"
#include "tests/support/WavFile.h"

namespace {

using ot::ResourceManager;
using ot_test::logCount;
using ot_test::logHas;
using ot_test::writeTempFile;

const char* const NOT_LOADED = "RM::loadSprite(): Sprite 's' NOT loaded.";

// A header, a one-row frame per line of rows, and a footer.
std::string robust(const std::string& header, const std::string& body,
                   const std::string& footer = "version 1\n") {
  return "<HEADER>\n" + header + "</HEADER>\n<BODY>\n" + body + "</BODY>\n<FOOTER>\n" + footer +
         "</FOOTER>\n";
}

class SpriteFile : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 20; }

  ResourceManager& rm() { return ResourceManager::getInstance(); }
  int load(const std::string& text, const std::string& label = "s") {
    return rm().loadSprite(writeTempFile("sprite.txt", text), label);
  }

  // Whether the log ends with exactly these messages.
  ::testing::AssertionResult logEndsWith(std::vector<std::string> tail) {
    std::vector<std::string> messages = logMessages();
    bool match = messages.size() >= tail.size() &&
                 std::equal(tail.begin(), tail.end(), messages.end() - static_cast<long>(tail.size()));
    if (match) return ::testing::AssertionSuccess();
    ::testing::AssertionResult failure = ::testing::AssertionFailure();
    failure << "log ends with:";
    size_t from = messages.size() > tail.size() + 2 ? messages.size() - tail.size() - 2 : 0;
    for (size_t i = from; i < messages.size(); i++) failure << "\n  [" << messages[i] << "]";
    return failure;
  }
};

using SimpleSpriteFile = SpriteFile;
using RobustSpriteFile = SpriteFile;
using RobustSpriteFileDeathTest = SpriteFile;

TEST_F(SpriteFile, UnknownFirstLineIsRefused) {
  EXPECT_EQ(-1, load(""));
  EXPECT_TRUE(logEndsWith({"RM::loadSprite(): Error! Unknown sprite file format.",
                           "RM::loadSprite(): First line is ''.", NOT_LOADED}));
  // The tag must stand alone to mean the robust format.
  EXPECT_EQ(-1, load("<HEADER> \nframes 1\n"));
  EXPECT_TRUE(logHas(logMessages(), "RM::loadSprite(): First line is '<HEADER> '."));
  EXPECT_EQ(-1, rm().loadSprite("/nonexistent/coin.txt", "s"));
  EXPECT_TRUE(logEndsWith({"RM::loadSprite(): Error! Cannot open file '/nonexistent/coin.txt'.",
                           "RM::loadSprite(): Sprite 's' not loaded."}));
  EXPECT_EQ(nullptr, rm().getSprite("s"));
}

TEST_F(SpriteFile, ExamplesForGameMakersLoad) {
  // This file's own path leads to the examples when the environment doesn't.
  const char* source_dir = std::getenv("OSTREL_SOURCE_DIR");
  std::string root =
      source_dir ? source_dir : std::string(__FILE__).substr(0, std::string(__FILE__).rfind("/tests/"));
  const std::string examples = root + "/sprites/examples/";
  ASSERT_EQ(0, rm().loadSprite(examples + "coin-simple.txt", "simple"));
  ASSERT_EQ(0, rm().loadSprite(examples + "coin-robust.txt", "robust"));
  for (const char* label : {"simple", "robust"}) {
    ot::Sprite* p_sprite = rm().getSprite(label);
    EXPECT_EQ(4, p_sprite->getFrameCount()) << label;
    EXPECT_EQ(ot::YELLOW, p_sprite->getColor()) << label;
  }
}

TEST_F(SimpleSpriteFile, LoadsEveryFrameInItsColour) {
  ASSERT_EQ(0, load("2\n3\n2\n4\ncyan\no.o\n.-.\nO.O\n.o.\n"));
  EXPECT_TRUE(logEndsWith({"RM::loadSprite(): Sprite 's' frames:", "\tFrame 1:", "\to.o", "\t.-.",
                           "\tFrame 2:", "\tO.O", "\t.o.", "RM::loadSprite(): Sprite 's' loaded."}));
  ot::Sprite* p_sprite = rm().getSprite("s");
  ASSERT_NE(nullptr, p_sprite);
  EXPECT_EQ(2, p_sprite->getFrameCount());
  EXPECT_EQ(3, p_sprite->getWidth());
  EXPECT_EQ(2, p_sprite->getHeight());
  EXPECT_EQ(4, p_sprite->getSlowdown());
  EXPECT_EQ(ot::CYAN, p_sprite->getColor());
  EXPECT_EQ(0, p_sprite->getTransparency());
  EXPECT_EQ("o.o.-.", p_sprite->getFrame(0).getString());
  EXPECT_EQ("O.O.o.", p_sprite->getFrame(1).getString());
  std::vector<std::string> messages = logMessages();
  EXPECT_TRUE(logHas(messages, "RM::loadSprite(): assuming simple sprite file format."));
  EXPECT_TRUE(logHas(messages, "\t       Color: cyan"));
  ASSERT_EQ(0, load("2\r\n3\r\n2\r\n4\r\ncyan\r\no.o\r\n.-.\r\nO.O\r\n.o.\r\n", "crlf"));
  EXPECT_EQ("O.O.o.", rm().getSprite("crlf")->getFrame(1).getString());
}

TEST_F(SimpleSpriteFile, EndsWithOneNewlineAtMost) {
  EXPECT_EQ(0, load("1\n1\n1\n0\nred\n#"));
  EXPECT_EQ(0, load("1\n1\n1\n0\nred\n#\n"));
  EXPECT_EQ(-1, load("1\n1\n1\n0\nred\n#\n\n"));
  EXPECT_TRUE(logEndsWith({"RM::loadSimpleSprite(): Error line 7!", "\tExtra file data: ''", NOT_LOADED}));
  EXPECT_EQ(-1, load("1\r\n1\r\n1\r\n0\r\nred\r\n#\r\n\r\n"));
  EXPECT_TRUE(logEndsWith({"RM::loadSimpleSprite(): Error line 7!", "\tExtra file data: ''", NOT_LOADED}));
  EXPECT_EQ(-1, load("1\n1\n1\n0\nred\n#\n#\n"));
  EXPECT_TRUE(logEndsWith({"RM::loadSimpleSprite(): Error line 7!", "\tExtra file data: '#'", NOT_LOADED}));
}

TEST_F(SimpleSpriteFile, HeaderLinesAreCheckedInTurn) {
  struct Case {
    const char* text;
    std::vector<std::string> trail;
  };
  const Case cases[] = {
      {"1\nx\n", {"RM::loadSimpleSprite(): Error line 2! Width is 'x'."}},
      {"1\n3\n0\n", {"RM::loadSimpleSprite(): Error line 3! Height is '0'."}},
      {"1\n3\n1\n-1\nred\n", {"RM::loadSimpleSprite(): Error line 4! Slowdown is '-1'."}},
      {"1\n3\n1\n0\nRed\nabc\n",
       {"RM::loadSimpleSprite(): Error line 5! Unrecognized color 'Red'.",
        "  Valid colors are: black, red, green, yellow,",
        "                    blue, magenta, cyan or white."}},
      {"1\n\n", {"RM::loadSimpleSprite(): Error! Unexpected end of file.", "\tMissing width (an integer)."}},
      {"1\n3\n1\n0\n",
       {"RM::loadSimpleSprite(): Error! Unexpected end of file.", "\tMissing color (a string)."}},
      {"1\n3\n1",
       {"getLine(): Error! Unexpected end of file.", "RM::loadSimpleSprite(): Error! Unexpected end of file.",
        "\tMissing slowdown (an integer)."}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(-1, load(c.text));
    std::vector<std::string> trail = c.trail;
    trail.push_back(NOT_LOADED);
    EXPECT_TRUE(logEndsWith(trail));
  }
  EXPECT_EQ(nullptr, rm().getSprite("s"));
  // atoi reads the leading number and ignores the rest of the line.
  EXPECT_EQ(0, load("1 frame\n3 wide\n1\n0\nred\nabc\n"));
}

TEST_F(SimpleSpriteFile, ZeroFramesIsCaughtByTheReaderItself) {
  std::string path = writeTempFile("sprite.txt", "0\n3\n1\n0\nred\n");
  EXPECT_EQ(-1, rm().loadSprite(path, "s"));  // never reaches the reader
  std::ifstream file(path);
  EXPECT_EQ(nullptr, rm().loadSimpleSprite(file));
  EXPECT_TRUE(logEndsWith({"RM::loadSimpleSprite(): Error line 1! Number of frames is 0."}));
}

TEST_F(SimpleSpriteFile, RowsAreCheckedForLength) {
  EXPECT_EQ(-1, load("2\n3\n1\n0\nred\nabc\nabcd\n"));
  EXPECT_TRUE(logEndsWith({"RM::loadSimpleSprite(): Error line 7!", "\tLine  7: 'abcd'",
                           "\tWidth is 4, expected 3.", NOT_LOADED}));
  // A blank row reads as the end of the file.
  EXPECT_EQ(-1, load("2\n3\n2\n0\nred\nabc\nabc\n\nabc\n"));
  EXPECT_TRUE(logEndsWith({"RM::loadSimpleSprite(): Error! Unexpected end of file.",
                           "\tReading frame 2 of 2, row 1 of 2.", NOT_LOADED}));
  EXPECT_EQ(-1, load("2\n3\n2\n0\nred\nabc\nabc\nabc\n"));
  EXPECT_TRUE(logEndsWith({"RM::loadSimpleSprite(): Error! Unexpected end of file.",
                           "\tReading frame 2 of 2, row 2 of 2.", NOT_LOADED}));
}

TEST_F(RobustSpriteFile, LoadsEveryKey) {
  ASSERT_EQ(0, load(robust("frames 2\nwidth 3\nheight 2\ncolor yellow\ntransparency #\nslowdown 3\n",
                           "#o#\n(|)\nend\n#O#\n(|)\nend\n")));
  ot::Sprite* p_sprite = rm().getSprite("s");
  ASSERT_NE(nullptr, p_sprite);
  EXPECT_EQ(2, p_sprite->getFrameCount());
  EXPECT_EQ(3, p_sprite->getWidth());
  EXPECT_EQ(2, p_sprite->getHeight());
  EXPECT_EQ(ot::YELLOW, p_sprite->getColor());
  EXPECT_EQ('#', p_sprite->getTransparency());
  EXPECT_EQ(3, p_sprite->getSlowdown());
  EXPECT_EQ("#O#(|)", p_sprite->getFrame(1).getString());
  std::vector<std::string> messages = logMessages();
  EXPECT_TRUE(logHas(messages, "RM::loadSprite(): assuming robust sprite file format."));
  EXPECT_TRUE(logHas(messages, "\tTransparency: '#'"));
  EXPECT_TRUE(logHas(messages, "RM::loadSprite(): Sprite 's' loaded."));
}

TEST_F(RobustSpriteFile, OptionalKeysHaveDefaults) {
  // Any one character may follow the key.
  ASSERT_EQ(0, load(robust("frames=1\nwidth:3\nheight 1\n", "abc\nend\n")));
  ot::Sprite* p_sprite = rm().getSprite("s");
  EXPECT_EQ(ot::WHITE, p_sprite->getColor());
  EXPECT_EQ(0, p_sprite->getTransparency());
  EXPECT_EQ(0, p_sprite->getSlowdown());
  std::vector<std::string> messages = logMessages();
  EXPECT_TRUE(logHas(messages, "RM::loadRobustSprite(): Warning! No 'color' in header."));
  EXPECT_TRUE(logHas(messages, "RM::loadRobustSprite(): Note! No 'transparency' in header."));
  EXPECT_TRUE(logHas(messages, "RM::loadRobustSprite(): Note! No 'slowdown' in header."));
  EXPECT_TRUE(logHas(messages, "\tTransparency: (none)"));
  EXPECT_TRUE(logHas(messages, "\t       Color: default"));
}

TEST_F(RobustSpriteFile, KeysMatchByPrefixAndTheLastWins) {
  ASSERT_EQ(
      0, load(robust("frames 1\nwidth 3\nheight 1\ncolor red\ncolour green\ntransparency \" \"\ncolor blue\n"
                     "slowdown 2\nslowdown 5\n",
                     "a a\nend\n", "version 2\nauthor me\n") +
              "anything after the footer\n\n"));
  ot::Sprite* p_sprite = rm().getSprite("s");
  EXPECT_EQ(ot::BLUE, p_sprite->getColor());
  EXPECT_EQ(5, p_sprite->getSlowdown());
  EXPECT_EQ(' ', p_sprite->getTransparency());
  std::vector<std::string> messages = logMessages();
  EXPECT_TRUE(logHas(messages, "matchLineStr(): Warning! 'color blue' matches multiple lines."));
  EXPECT_TRUE(logHas(messages, "matchLineInt(): Warning! 'slowdown 5' matches multiple lines."));
  EXPECT_TRUE(logHas(messages, "RM::loadRobustSprite(): transparency is 'space'"));
  EXPECT_TRUE(logHas(messages, "RM::loadRobustSprite(): Warning! Unused HEADER lines:"));
  EXPECT_TRUE(logHas(messages, "\t'colour green'"));
  EXPECT_TRUE(logHas(messages, "RM::loadRobustSprite(): Warning! Unused FOOTER lines:"));
  EXPECT_TRUE(logHas(messages, "\t'author me'"));
}

TEST_F(RobustSpriteFile, HeaderValuesAreNotRangeChecked) {
  EXPECT_EQ(-1, load(robust("frames 1\nwidth 1\n", "x\nend\n")));
  EXPECT_TRUE(logEndsWith({"RM::loadRobustSprite(): Error! Missing 'height' in header.", NOT_LOADED}));
  // Only -1 counts as missing.
  ASSERT_EQ(0, load(robust("frames 1\nwidth 1\nheight 1\nslowdown -1\n", "x\nend\n"), "minus1"));
  EXPECT_EQ(0, rm().getSprite("minus1")->getSlowdown());
  ASSERT_EQ(0, load(robust("frames 1\nwidth 1\nheight 1\nslowdown -2\n", "x\nend\n"), "minus2"));
  EXPECT_EQ(-2, rm().getSprite("minus2")->getSlowdown());
  EXPECT_EQ(-1, load(robust("frames 0\nwidth 1\nheight 1\n", "x\nend\n")));
  EXPECT_TRUE(logHas(logMessages(), "RM::loadRobustSprite(): Error! Extra BODY:"));
  EXPECT_EQ(-1, load(robust("frames 1\nwidth 1\nheight 1\ncolor pink\n", "x\nend\n")));
  EXPECT_TRUE(logEndsWith({"RM::loadRobustSprite(): Error! Unrecognized color 'pink'.",
                           "  Valid colors are: black, red, green, yellow,",
                           "                    blue, magenta, cyan and white.", NOT_LOADED}));
}

TEST_F(RobustSpriteFile, FrameErrorsReckonLinesFromTheBodyStart) {
  const std::string header = "frames 3\nwidth 3\nheight 1\n";  // the body starts on line 6
  // The bad row stands on line 11; the reckoning leaves out the "end" lines.
  EXPECT_EQ(-1, load(robust(header, "abc\nend\nabc\nend\nabcd\nend\n")));
  EXPECT_TRUE(
      logEndsWith({"\tLine 10: 'abcd'", "\tError! Line 10: Line length is 4 (frame width is 3).",
                   "\tLine 10: 'abcd'", "RM::loadRobustSprite(): Error! No frame data to add.", NOT_LOADED}));
  // A missing "end" is reported at the closing tag, line 9.
  EXPECT_EQ(-1, load(robust("frames 1\nwidth 3\nheight 1\n", "abc\nxyz\n")));
  EXPECT_TRUE(logEndsWith({"\tError! Line 9: Expected 'end'.", "\tLine 9: 'xyz'",
                           "RM::loadRobustSprite(): Error! No frame data to add.", NOT_LOADED}));
  EXPECT_EQ(-1, load(robust(header, "abc\nend\n")));
  EXPECT_TRUE(logEndsWith({"\tError! Line 9: No more frame data before 'end'.",
                           "RM::loadRobustSprite(): Error! No frame data to add.", NOT_LOADED}));
}

TEST_F(RobustSpriteFile, MoreFramesThanTheHeaderSaysIsAnError) {
  EXPECT_EQ(-1, load(robust("frames 2\nwidth 3\nheight 1\n", "abc\nend\nabc\nend\nxyz\nend\n")));
  EXPECT_TRUE(logEndsWith(
      {"RM::loadRobustSprite(): Error! Extra BODY:", "\tLine 13: xyz", "\tLine 14: end", NOT_LOADED}));
}

TEST_F(RobustSpriteFile, SectionsMustBeWhole) {
  EXPECT_EQ(-1, load(robust("frames 1\nwidth 3\nheight 1\n", "abc\n\nend\n")));
  EXPECT_TRUE(logEndsWith({"readData(): Error! Stop at line 7, never encountered '</BODY>'.", NOT_LOADED}));
  EXPECT_EQ(-1, load("<HEADER>\nframes 1\nwidth 3\nheight 1\n</HEADER>\n<BOD>\n"));
  EXPECT_TRUE(logEndsWith({"readData(): Error line 6! Expected '<BODY>', have '<BOD>'.", NOT_LOADED}));
  EXPECT_EQ(-1, load("<HEADER>\nframes 1\nwidth 3\nheight 1\n</HEADER>\n<BODY>\nabc\nend\n</BODY>\n"));
  EXPECT_TRUE(logEndsWith({"readData(): Error line 10! Expected '<FOOTER>', have ''.", NOT_LOADED}));
  EXPECT_EQ(-1, load(robust("frames 1\nwidth 3\nheight 1\n", "abc\nend\n", "author me\n")));
  EXPECT_TRUE(
      logEndsWith({"RM::loadRobustSprite(): Error! Missing 'version' in FOOTER (line 12).", NOT_LOADED}));
  EXPECT_EQ(nullptr, rm().getSprite("s"));
}

TEST_F(RobustSpriteFile, CarriageReturnsReadLikeLineFeeds) {
  std::string text = robust("frames 1\nwidth 3\nheight 1\ntransparency .\n", "a.c\nend\n");
  std::string crlf;
  for (char c : text) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
  ASSERT_EQ(0, load(crlf));
  EXPECT_EQ('.', rm().getSprite("s")->getTransparency());
  EXPECT_EQ("a.c", rm().getSprite("s")->getFrame(0).getString());
}

TEST_F(RobustSpriteFileDeathTest, KeyWithoutValueEndsTheProgram) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // the audio device runs a thread
  // Nothing in the engine or the game catches it; the noexcept frame stands
  // in for the game's main, where it would end the program the same way.
  std::string path = writeTempFile("sprite.txt", robust("frames\nwidth 1\nheight 1\n", "x\nend\n"));
  auto load_from_main = [&]() noexcept { rm().loadSprite(path, "s"); };
  EXPECT_DEATH(load_from_main(), "std::out_of_range");
}

// The tables themselves, at the default log level.
class Resources : public SpriteFile {
 protected:
  int logLevel() const override { return 0; }
};

TEST_F(Resources, NeedsStartingExceptForLookUps) {
  rm().shutDown();
  EXPECT_EQ(nullptr, rm().getSprite("s"));
  EXPECT_TRUE(logEndsWith({"RM::getSprite(): Warning! Sprite 's' not found."}));
  EXPECT_EQ(-1, load("1\n1\n1\n0\nred\n#\n"));
  EXPECT_EQ(-1, rm().unloadSprite("s"));
  EXPECT_EQ(-1, rm().loadSound(ot_test::writeWavFile("a.wav", 100), "a"));
  EXPECT_EQ(-1, rm().unloadMusic("m"));
  EXPECT_EQ(4, logCount(logMessages(), "ResourceManager not started!"));
  EXPECT_EQ(0, rm().startUp());
  EXPECT_EQ(-1, rm().startUp());
  EXPECT_TRUE(logEndsWith({"ResourceManager::startup(): Warning! ResourceManager already started."}));
}

TEST_F(Resources, HoldsAThousandSprites) {
  std::string path = writeTempFile("sprite.txt", "1\n1\n1\n0\nred\n#\n");
  for (int i = 0; i < ot::MAX_SPRITES; i++) ASSERT_EQ(0, rm().loadSprite(path, "s" + std::to_string(i)));
  EXPECT_EQ(-1, rm().loadSprite(path, "one more"));
  EXPECT_TRUE(logEndsWith({"RM::loadRobustSprite(): Error! Cannot add more Sprites (max is 1000).",
                           "RM::loadRobustSprite(): Sprite 'one more' not loaded."}));
  EXPECT_EQ(0, rm().unloadSprite("s0"));
  EXPECT_EQ(0, rm().loadSprite(path, "one more"));
}

TEST_F(Resources, UnloadingASpriteUncoversTheNextOfItsLabel) {
  ASSERT_EQ(0, load("1\n1\n1\n0\nred\nA\n"));
  ASSERT_EQ(0, load("1\n1\n1\n0\nred\nB\n"));
  EXPECT_EQ("A", rm().getSprite("s")->getFrame(0).getString());
  EXPECT_EQ(0, rm().unloadSprite("s"));
  EXPECT_EQ("B", rm().getSprite("s")->getFrame(0).getString());
  size_t lines = logMessages().size();
  EXPECT_EQ(-1, rm().unloadSprite("nothing"));
  EXPECT_EQ(lines, logMessages().size());
}

TEST_F(Resources, UnloadingASoundMovesTheLaterOnesDown) {
  ASSERT_EQ(0, rm().loadSound(ot_test::writeWavFile("a.wav", 100), "a"));
  ASSERT_EQ(0, rm().loadSound(ot_test::writeWavFile("b.wav", 200), "b"));
  ASSERT_EQ(0, rm().loadSound(ot_test::writeWavFile("c.wav", 300), "c"));
  ot::Sound* p_first = rm().getSound("a");
  ot::Sound* p_second = rm().getSound("b");
  EXPECT_EQ(0, rm().unloadSound("a"));
  EXPECT_EQ(p_first, rm().getSound("b"));
  EXPECT_EQ(p_second, rm().getSound("c"));
  EXPECT_EQ(200u, p_first->getSound().getBuffer()->getSampleCount());
  EXPECT_EQ(300u, p_second->getSound().getBuffer()->getSampleCount());
  EXPECT_EQ(nullptr, rm().getSound("a"));
  EXPECT_TRUE(logEndsWith({"RM::getSound(): Warning! Sound 'a' not found."}));
  EXPECT_EQ(-1, rm().unloadSound("a"));
}

TEST_F(Resources, HoldsAHundredSounds) {
  std::string path = ot_test::writeWavFile("a.wav", 100);
  for (int i = 0; i < ot::MAX_SOUNDS; i++) ASSERT_EQ(0, rm().loadSound(path, "s" + std::to_string(i)));
  EXPECT_EQ(-1, rm().loadSound(path, "one more"));
  EXPECT_TRUE(logEndsWith({"RM::loadSound(): Error! Unable to add more sounds (max is 100)."}));
  EXPECT_EQ(0, rm().unloadSound("s0"));
  EXPECT_EQ(0, rm().loadSound(path, "one more"));
}

TEST_F(Resources, UnreadableSoundOrMusicIsRefused) {
  EXPECT_EQ(-1, rm().loadSound("/nonexistent.wav", "x"));
  EXPECT_TRUE(logEndsWith({"RM::loadSound(): Error! Cannot load sound from file '/nonexistent.wav'."}));
  EXPECT_EQ(-1, rm().loadMusic("/nonexistent.ogg", "x"));
  EXPECT_TRUE(logEndsWith({"RM::loadmusic(): Error! Cannot load music from file '/nonexistent.ogg'."}));
  EXPECT_EQ(-1, rm().loadMusic(ot_test::writeWavFile("a.wav", 100), ""));
  EXPECT_TRUE(logEndsWith({"RM::loadMusic(): Error! Must provide label for music."}));
  EXPECT_EQ(nullptr, rm().getSound("x"));
  EXPECT_EQ(nullptr, rm().getMusic("x"));
  EXPECT_TRUE(logEndsWith({"RM::getMusic(): Warning! Music 'x' not found."}));
}

TEST_F(Resources, UnloadedMusicKeepsItsSlot) {
  std::string path = ot_test::writeWavFile("a.wav", 100);
  for (int i = 0; i < ot::MAX_MUSICS; i++) ASSERT_EQ(0, rm().loadMusic(path, "m" + std::to_string(i)));
  EXPECT_EQ(-1, rm().loadMusic(path, "one more"));
  EXPECT_TRUE(logEndsWith({"RM::loadMusic(): Error! Unable to add more musics (max is 50)."}));
  EXPECT_EQ(0, rm().unloadMusic("m7"));
  EXPECT_EQ(nullptr, rm().getMusic("m7"));
  EXPECT_TRUE(logEndsWith({"RM::getMusic(): Warning! Music 'm7' not found."}));
  EXPECT_EQ(-1, rm().loadMusic(path, "one more"));
  EXPECT_NE(nullptr, rm().getMusic("m8"));
}

class ResourcesVerbose : public SpriteFile {
 protected:
  int logLevel() const override { return 5; }
};

TEST_F(ResourcesVerbose, ShutDownStopsMusicOnlyUpToTheNumberOfSounds) {
  std::string wav = ot_test::writeWavFile("a.wav", 100);
  ASSERT_EQ(0, rm().loadSound(wav, "sound"));
  for (const char* label : {"m1", "m2", "m3"}) ASSERT_EQ(0, rm().loadMusic(wav, label));
  rm().shutDown();
  EXPECT_EQ(1, logCount(logMessages(), "Music::stop(): Stopping music."));
  // The counts outlive the shut-down until the next start.
  EXPECT_NE(nullptr, rm().getMusic("m3"));
  ASSERT_EQ(0, rm().startUp());
  ASSERT_EQ(0, rm().loadMusic(wav, "m1"));
  rm().shutDown();
  EXPECT_EQ(1, logCount(logMessages(), "Music::stop(): Stopping music."));
  ASSERT_EQ(0, rm().startUp());
}

}  // namespace
