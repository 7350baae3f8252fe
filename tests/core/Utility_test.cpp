#include "engine/core/Utility.h"

#include <gtest/gtest.h>

#include "tests/support/HeadlessEngine.h"

using namespace ot;

TEST(Utility, ToStringUsesTheStreamDefaults) {
  EXPECT_EQ("3.5 0.333333 0 x",
            toString(3.5f) + " " + toString(1.0f / 3.0f) + " " + toString('\0') + " " + toString('x'));
  EXPECT_EQ("Unknown color", toString(CUSTOM));
  EXPECT_EQ("CONNCECT", toString(CONNECT));
}

TEST(Utility, MatchAnswersEmptyTextsFromTheLastParse) {
  EXPECT_EQ("2", match("a:1,b:2", "b"));
  EXPECT_EQ("1", match("", "a"));
  EXPECT_EQ("", match("", "c"));
  EXPECT_EQ("1", match("a : 1 , b", "a"));  // blanks go, everywhere
  EXPECT_EQ("", match("", "b"));
  EXPECT_EQ("x", match("k:x:y,", "k"));    // a second colon and what follows is ignored
  EXPECT_EQ("1", match("a:1,a:5,", "a"));  // the first equal key wins
  EXPECT_EQ("", match("Frame_Time:10,", "frame_time"));
}

class UtilityTest : public ot_test::HeadlessEngine {
  int logLevel() const override { return 25; }
};

TEST_F(UtilityTest, MatchAllocatesOneElementPerCommaPlusOne) {
  match("a:1,b:2,", "a");  // the trailing comma costs an unused element
  EXPECT_TRUE(ot_test::logHas(logMessages(), "match(): number of elements allocated is 3"));
}
