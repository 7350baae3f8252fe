#include "engine/presentation/ResourceManager.h"

#include <cstdlib>
#include <tuple>
#include <utility>

#include "engine/core/LogManager.h"
#include "engine/presentation/Sprite.h"
#include "tests/support/HeadlessEngine.h"

namespace {

using Lines = std::vector<std::string>;

std::string robust(std::string header, std::string body, std::string footer = "version 1\n") {
  return "<HEADER>\n" + header + "</HEADER>\n<BODY>\n" + body + "</BODY>\n<FOOTER>\n" + footer +
         "</FOOTER>\n";
}

class ResourceManagerTest : public ot_test::HeadlessEngine {
 protected:
  ot::ResourceManager& rm = ot::ResourceManager::getInstance();
  std::string m_path;
  // Loads text as a sprite file at this log level; the log lines that wrote.
  Lines load(const std::string& text, int result, int level = 0, const std::string& label = "s") {
    ot::LogManager::getInstance().setLogLevel(level);
    m_path = ot_test::writeTempFile("sprite.txt", text);
    newLogMessages();
    EXPECT_EQ(result, rm.loadSprite(m_path, label)) << text;
    return newLogMessages();
  }
};

TEST_F(ResourceManagerTest, BrokenSpriteFilesLeaveTheirExactTrail) {
  const std::string h3 = "frames 1\nwidth 3\nheight 1\n", ok = "abc\nend\n";  // the body opens on line 6
  const std::string h2x2 = "frames 2\nwidth 3\nheight 2\n", simple = "RM::loadSimpleSprite(): Error line ";
  const std::string eof = "RM::loadSimpleSprite(): Error! Unexpected end of file.", line = "\tError! Line ";
  const std::string rs = "RM::loadRobustSprite(): Error! ", no_frame = rs + "No frame data to add.";
  const std::string unknown = "RM::loadSprite(): Error! Unknown sprite file format.";
  const std::pair<std::string, Lines> cases[] = {
      {"", {unknown, "RM::loadSprite(): First line is ''."}},
      {"<HEADER> \n", {unknown, "RM::loadSprite(): First line is '<HEADER> '."}},
      {"1\nx\n", {simple + "2! Width is 'x'."}},
      {"1\n3\n0\n", {simple + "3! Height is '0'."}},
      {"1\n3\n1\n-1\nred\n", {simple + "4! Slowdown is '-1'."}},
      {"1\n3\n1\n0\nRed\nabc\n",
       {simple + "5! Unrecognized color 'Red'.", "  Valid colors are: black, red, green, yellow,",
        "                    blue, magenta, cyan or white."}},
      {"1\n\n", {eof, "\tMissing width (an integer)."}},
      {"1\n3\n", {eof, "\tMissing height (an integer)."}},
      {"1\n3\n1", {"getLine(): Error! Unexpected end of file.", eof, "\tMissing slowdown (an integer)."}},
      {"1\n3\n1\n0\n", {eof, "\tMissing color (a string)."}},
      {"2\n3\n1\n0\nred\nabc\nabcd\n", {simple + "7!", "\tLine  7: 'abcd'", "\tWidth is 4, expected 3."}},
      {"2\n3\n2\n0\nred\nabc\nabc\n\nabc\n", {eof, "\tReading frame 2 of 2, row 1 of 2."}},
      {"2\n3\n2\n0\nred\nabc\nabc\nabc\n", {eof, "\tReading frame 2 of 2, row 2 of 2."}},
      {"1\n1\n1\n0\nred\n#\n\n", {simple + "7!", "\tExtra file data: ''"}},
      {"1\r\n1\r\n1\r\n0\r\nred\r\n#\r\n\r\n", {simple + "7!", "\tExtra file data: ''"}},
      {robust("width 3\nheight 1\n", ok), {rs + "Missing 'frames' in header."}},
      {robust("frames 1\nheight 1\n", ok), {rs + "Missing 'width' in header."}},
      {robust("frames 1\nwidth 3\n", ok), {rs + "Missing 'height' in header."}},
      {robust(h3 + "color pink\n", ok),
       {rs + "Unrecognized color 'pink'.", "  Valid colors are: black, red, green, yellow,",
        "                    blue, magenta, cyan and white."}},
      // No range checks: zero frames reaches the body.
      {robust("frames 0\nwidth 3\nheight 1\n", ok), {rs + "Extra BODY:", "\tLine 9: abc", "\tLine 10: end"}},
      // Frame i's rows count on from the body's start + i * height + 2: frame 1 reads a line high.
      {robust(h2x2, "abc\nabcd\nend\n" + ok),
       {line + "9: Line length is 4 (frame width is 3).", "\tLine 9: 'abcd'", no_frame}},
      {robust(h2x2, "abc\nabc\nend\nabcd\nabc\nend\n"),
       {line + "10: Line length is 4 (frame width is 3).", "\tLine 10: 'abcd'", no_frame}},
      {robust(h2x2, "abc\nabc\nend\n"), {line + "10: No more frame data before 'end'.", no_frame}},
      {robust(h3, "abc\n"), {line + "9: No more frame data before 'end'.", no_frame}},
      // A claimed count gets no room made for it up front: the file runs out first.
      {"2000000000\n3\n1\n0\nred\nabc\n", {eof, "\tReading frame 2 of 2000000000, row 1 of 1."}},
      {robust("frames 2000000000\nwidth 3\nheight 1\n", ok),
       {line + "9: No more frame data before 'end'.", no_frame}},
      // A missing "end" is placed at the closing tag, its text a line after the row.
      {robust(h3, "abc\nxyz\nmore\n"), {line + "10: Expected 'end'.", "\tLine 9: 'xyz'", no_frame}},
      {robust(h3, "abc\n\nend\n"), {"readData(): Error! Stop at line 7, never encountered '</BODY>'."}},
      {"<HEADER>\n" + h3 + "</HEADER>\n<BOD>\n",
       {"readData(): Error line 6! Expected '<BODY>', have '<BOD>'."}},
      {"<HEADER>\n" + h3 + "</HEADER>\n<BODY>\n" + ok + "</BODY>\n",
       {"readData(): Error line 10! Expected '<FOOTER>', have ''."}},
      {robust(h3, ok, "author me\n"), {rs + "Missing 'version' in FOOTER (line 12)."}},
  };
  // At level 0 only the unconditional lines show, so each trail is whole.
  for (auto [text, trail] : cases) {
    trail.push_back("RM::loadSprite(): Sprite 's' NOT loaded.");
    EXPECT_EQ(trail, load(text, -1)) << text;
  }
  // The simple reader checks the frame count itself; loadSprite never lets it.
  for (auto [text, trail] : {std::pair<std::string, Lines>{"\n", {eof, "\tMissing frames (an integer)."}},
                             {"0\n3\n", {simple + "1! Number of frames is 0."}}}) {
    load(text, -1);  // starts the line count afresh
    std::ifstream file(m_path);
    EXPECT_EQ(nullptr, rm.loadSimpleSprite(file));
    EXPECT_EQ(trail, newLogMessages());
  }
  EXPECT_EQ(-1, rm.loadSprite("/nonexistent/coin.txt", "s"));
  EXPECT_EQ(Lines({"RM::loadSprite(): Error! Cannot open file '/nonexistent/coin.txt'.",
                   "RM::loadSprite(): Sprite 's' not loaded."}),
            newLogMessages());
}

TEST_F(ResourceManagerTest, LevelledLinesShowFromTheirLevelOn) {
  const std::string r = robust("frames 1\nwidth 3\nheight 1\nspeed 2\n", "abc\nend\n"),
                    s = "1\n3\n1\n4\ncyan\nabc\n";
  const std::tuple<const std::string&, int, std::string> cases[] = {
      {r, 1, "RM::loadRobustSprite(): Warning! Unused HEADER lines:"},
      {r, 5, "RM::loadSprite(): assuming robust sprite file format."},
      {r, 20, "\tLine  9: 'abc'"},
      {s, 15, "RM::loadSimpleSprite(): Reading frame 1 of 1."},
      {s, 20, "\tLine  6: 'abc'"},
  };
  for (const auto& [text, level, line] : cases) {
    EXPECT_EQ(0, ot_test::logCount(load(text, 0, level - 1), line)) << line;
    EXPECT_EQ(1, ot_test::logCount(load(text, 0, level), line)) << line;
  }
}

TEST_F(ResourceManagerTest, BothFormatsLoadWithCarriageReturns) {
  const std::string simple = "2\n3\n2\n3\nyellow\n#o#\n(|)\n#O#\n(|)\n";
  // Robust keys match by prefix and the last wins; what is left over is only warned about.
  const std::string keys =
      "frames 2\nwidth 3\nheight 2\ncolor red\ncolour green\ncolor yellow\n"
      "transparency #\nslowdown -2\nslowdown 3\n";
  const std::string keyed = robust(keys, "#o#\n(|)\nend\n#O#\n(|)\nend\n", "version 2\nauthor me\n") +
                            "anything after the footer\n\n";
  for (const std::string& text : {simple, keyed}) {
    std::string crlf;
    for (char c : text) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    for (const std::string& file : {text, crlf.substr(0, crlf.size() - 2)}) {
      Lines trail = load(file, 0, 15);
      EXPECT_EQ(Lines({"RM::loadSprite(): Sprite 's' frames:", "\tFrame 1:", "\t#o#", "\t(|)",
                       "\tFrame 2:", "\t#O#", "\t(|)", "RM::loadSprite(): Sprite 's' loaded."}),
                Lines(trail.end() - 8, trail.end()));
      ot::Sprite* p = rm.getSprite("s");
      EXPECT_EQ(std::make_tuple(3, ot::YELLOW, text == simple ? '\0' : '#'),
                std::make_tuple(p->getSlowdown(), p->getColor(), p->getTransparency()));
      rm.unloadSprite("s");
    }
  }
  // At level 1 the warnings show, and nothing of a higher level.
  EXPECT_EQ(Lines({"RM::loadSprite(): Loading sprite '" + m_path + "'.",
                   "matchLineStr(): Warning! 'color yellow' matches multiple lines.",
                   "matchLineInt(): Warning! 'slowdown 3' matches multiple lines.",
                   "RM::loadRobustSprite(): Warning! Unused HEADER lines:", "\t'colour green'",
                   "RM::loadRobustSprite(): Warning! Unused FOOTER lines:", "\t'author me'"}),
            load(keyed, 0, 1));
  // Only -1 counts as a missing slowdown, which then is 0.
  load(robust("frames=1\nwidth:3\nheight 1\ntransparency \" \"\nslowdown -1\n", "abc\nend\n"), 0, 0, "bare");
  ot::Sprite* p = rm.getSprite("bare");
  EXPECT_EQ(std::make_tuple(0, ot::WHITE, ' '),
            std::make_tuple(p->getSlowdown(), p->getColor(), p->getTransparency()));
}

TEST_F(ResourceManagerTest, NumberKeyWithoutValueIsRefused) {
  const std::string body = "x\nend\n", error = "RM::loadRobustSprite(): Error line ";
  const std::pair<std::string, std::string> cases[] = {
      {"frames\nwidth 1\nheight 1\n", "2! No value for 'frames' in header."},
      {"frames 1\nwidth\r\nheight 1\n", "3! No value for 'width' in header."},
      {"frames 1\nwidth 1\ncolor red\nheight\n", "5! No value for 'height' in header."},
      {"frames 2\nframes\nwidth 1\nheight 1\n", "3! No value for 'frames' in header."},
      {"frames 1\nwidth 1\nheight 1\nslowdown\n", "5! No value for 'slowdown' in header."},
      // Refused before the missing height is noticed, as the key comes first.
      {"width 1\nframes\n", "3! No value for 'frames' in header."},
  };
  for (const auto& [header, message] : cases)
    EXPECT_EQ(Lines({error + message, "RM::loadSprite(): Sprite 's' NOT loaded."}),
              load(robust(header, body), -1))
        << header;
  EXPECT_EQ(nullptr, rm.getSprite("s"));
  // Text keys alone on their line read as absent, and their defaults hold.
  load(robust("frames 1\nwidth 1\nheight 1\ncolor\ntransparency\n", body), 0, 0, "after");
  ot::Sprite* p = rm.getSprite("after");
  ASSERT_NE(nullptr, p);
  EXPECT_EQ(std::make_tuple(ot::WHITE, '\0'), std::make_tuple(p->getColor(), p->getTransparency()));
}

TEST_F(ResourceManagerTest, UnloadingUncoversTheNextOfALabel) {
  load("1\n1\n1\n0\nred\nA\n", 0);
  load("1\n1\n1\n0\nred\nB\n", 0);
  for (int i = 2; i < ot::MAX_SPRITES; i++) ASSERT_EQ(0, rm.loadSprite(m_path, std::to_string(i)));
  EXPECT_EQ(Lines({"RM::loadRobustSprite(): Error! Cannot add more Sprites (max is 1000).",
                   "RM::loadRobustSprite(): Sprite 's' not loaded."}),
            load("1\n1\n1\n0\nred\nC\n", -1));
  EXPECT_EQ("A", rm.getSprite("s")->getFrame(0).getString());
  EXPECT_EQ(0, rm.unloadSprite("s"));
  EXPECT_EQ("B", rm.getSprite("s")->getFrame(0).getString());
  EXPECT_EQ(0, rm.loadSprite(m_path, "more"));
}

}  // namespace

TEST_F(ResourceManagerTest, ShippedExamplesLoad) {
  const std::string dir = std::string(getenv("OSTREL_SOURCE_DIR")) + "/sprites/examples/";
  EXPECT_EQ(0, rm.loadSprite(dir + "coin-simple.txt", "simple"));
  EXPECT_EQ(0, rm.loadSprite(dir + "coin-robust.txt", "robust"));
  EXPECT_EQ(rm.getSprite("simple")->getFrameCount(), rm.getSprite("robust")->getFrameCount());
  // The game template's, which a new game maker edits first.
  EXPECT_EQ(0, rm.loadSprite(std::string(getenv("OSTREL_SOURCE_DIR")) + "/examples/walker/sprites/walker.txt",
                             "template"));
  rm.shutDown();
  EXPECT_EQ(-1, rm.loadSprite(dir + "coin-simple.txt", "late"));
  EXPECT_TRUE(ot_test::logHas(logMessages(), "ResourceManager not started!"));
  rm.startUp();
}
