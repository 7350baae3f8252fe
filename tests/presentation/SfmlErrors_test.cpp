#include "engine/presentation/SfmlErrors.h"

#include <SFML/System/Err.hpp>
#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "engine/core/GameManager.h"
#include "engine/presentation/Sound.h"
#include "tests/support/HeadlessEngine.h"

namespace {

using Lines = std::vector<std::string>;

Lines sfmlLines(const Lines& log) {
  Lines found;
  std::copy_if(log.begin(), log.end(), std::back_inserter(found),
               [](const std::string& line) { return line.rfind("SFML: ", 0) == 0; });
  return found;
}

using SfmlErrorsTest = ot_test::HeadlessEngine;

TEST_F(SfmlErrorsTest, EachLineSfmlReportsIsLogged) {
  sf::err() << "first report\n\n   \nsecond"
            << " report" << std::endl
            << "unfinished";
  ot::GameManager::getInstance().shutDown();
  EXPECT_EQ((Lines{"SFML: first report", "SFML: second report", "SFML: unfinished"}),
            sfmlLines(ot_test::readLogMessages()));
  ot::GameManager::getInstance().startUp();
}

TEST_F(SfmlErrorsTest, SfmlsReasonForAFailedLoadLandsInTheLog) {
  ot::Sound sound;
  EXPECT_EQ(-1, sound.loadSound("/nonexistent-sound.wav"));
  Lines reported = sfmlLines(logMessages());
  EXPECT_TRUE(std::any_of(reported.begin(), reported.end(), [](const std::string& line) {
    return line.find("/nonexistent-sound.wav") != std::string::npos;
  })) << ::testing::PrintToString(reported);
}

TEST(SfmlErrors, TheStreamIsHandedBackAsItWasFound) {
  std::stringstream mine;
  std::streambuf* p_original = sf::err().rdbuf(mine.rdbuf());
  ot::logSfmlErrors();
  ot::logSfmlErrors();  // a second call must not take its own buffer for the one to hand back
  EXPECT_NE(mine.rdbuf(), sf::err().rdbuf());
  ot::restoreSfmlErrors();
  ot::restoreSfmlErrors();
  sf::err() << "after";
  EXPECT_EQ("after", mine.str());
  sf::err().rdbuf(p_original);
}

}  // namespace
