#include "engine/core/Utility.h"

#include <gtest/gtest.h>

#include <regex>
#include <sstream>

#include "tests/support/HeadlessEngine.h"
#include "tests/support/LogReader.h"

using namespace ot;

TEST(ToString, NumbersUseTheStreamDefaults) {
  EXPECT_EQ("3.5", toString(3.5f));
  EXPECT_EQ("0.333333", toString(1.0f / 3.0f));
  EXPECT_EQ("-42", toString(-42));
  EXPECT_EQ("0", toString('\0'));
  EXPECT_EQ("x", toString('x'));
  EXPECT_EQ("true", toString(true));
}

TEST(ToString, LabelsOfEnumerationsWithTheirFallbacks) {
  EXPECT_EQ("Yellow", toString(YELLOW));
  EXPECT_EQ("Unknown color", toString(CUSTOM));
  EXPECT_EQ("Unknown color", toString(static_cast<Color>(42)));
  EXPECT_EQ("spectral", toString(SPECTRAL));
  EXPECT_EQ("undefined", toString(static_cast<Solidness>(3)));
  EXPECT_EQ("BOTH", toString(BOTH));
  EXPECT_EQ("UNKNOWN", toString(static_cast<Transform>(4)));
  EXPECT_EQ("bot-right", toString(BOTTOM_RIGHT));
  EXPECT_EQ("unknown", toString(static_cast<Location>(9)));
  EXPECT_EQ("CONNCECT", toString(CONNECT));
  EXPECT_EQ("UNKNOWN", toString(static_cast<NetworkEventLabel>(4)));
}

TEST(Match, ParsesOnceAndAnswersLaterQueriesFromTheLastParse) {
  EXPECT_EQ("2", match("a:1,b:2", "b"));
  EXPECT_EQ("1", match("", "a"));
  EXPECT_EQ("", match("", "c"));
}

TEST(Match, RemovesAllBlanksAndToleratesMissingValues) {
  EXPECT_EQ("1", match("a : 1 , b", "a"));
  EXPECT_EQ("", match("", "b"));
  EXPECT_EQ("MyGame", match("window_title:My Game,", "window_title"));
  EXPECT_EQ("x", match("k:x:y,", "k"));    // a second colon and what follows is ignored
  EXPECT_EQ("1", match("a:1,a:5,", "a"));  // the first equal key wins
}

TEST(Match, KeysAreCaseSensitiveAndTrailingCommaIsHarmless) {
  EXPECT_EQ("", match("Frame_Time:10,", "frame_time"));
  EXPECT_EQ("10", match("frame_time:10,", "frame_time"));
  EXPECT_EQ("10", match("", "frame_time"));
}

TEST(TimeString, IsHoursMinutesSeconds) {
  EXPECT_TRUE(std::regex_match(getTimeString(), std::regex(R"(\d\d:\d\d:\d\d)")));
}

class CheckStream : public ot_test::HeadlessEngine {};

TEST_F(CheckStream, GoodStreamPassesAndEofIsNamedBeforeFail) {
  std::stringstream good("abc");
  EXPECT_EQ(0, checkStream("here", &good));

  std::stringstream past_end("");
  int value = 0;
  past_end >> value;  // sets eof and fail
  EXPECT_EQ(-1, checkStream("Reader::read()", &past_end));

  std::stringstream not_a_number("x");
  not_a_number >> value;
  EXPECT_EQ(-1, checkStream("Parser::parse()", &not_a_number));

  std::stringstream bad;
  bad.setstate(std::ios::badbit);
  EXPECT_EQ(-1, checkStream("Writer::write()", &bad));

  auto log = logMessages();
  EXPECT_TRUE(ot_test::logHas(log, "Reader::read(): Error! Stream eof."));
  EXPECT_TRUE(ot_test::logHas(log, "Parser::parse(): Error! Stream fail."));
  // fail() covers the bad bit too, so a bad stream reads as failed.
  EXPECT_TRUE(ot_test::logHas(log, "Writer::write(): Error! Stream fail."));
}
