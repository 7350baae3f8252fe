#include "engine/presentation/InputManager.h"

#include <gtest/gtest.h>

#include <SFML/Window/Event.hpp>
#include <string>
#include <utility>

#include "engine/core/Config.h"
#include "engine/core/EventKeyboard.h"
#include "engine/core/EventLabels.h"
#include "engine/presentation/DisplayManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

namespace {

namespace K = ot::Keyboard;
using ot::InputManager;

sf::Event keyEvent(sf::Keyboard::Key code, sf::Event::EventType type = sf::Event::KeyPressed) {
  sf::Event event{};
  event.type = type;
  event.key.code = code;
  return event;
}

// Level 1 shows the warnings for keys without a code.
class InputManagerTest : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 1; }
};

TEST_F(InputManagerTest, EverySfmlKeyWithACodeTranslates) {
  using S = sf::Keyboard;
  const std::pair<S::Key, int> table[] = {
      {S::Space, K::SPACE},
      {S::Enter, K::RETURN},
      {S::Escape, K::ESCAPE},
      {S::Tab, K::TAB},
      {S::Left, K::LEFTARROW},
      {S::Right, K::RIGHTARROW},
      {S::Up, K::UPARROW},
      {S::Down, K::DOWNARROW},
      {S::Pause, K::PAUSE},
      {S::Subtract, K::MINUS},
      {S::Add, K::PLUS},
      {S::Tilde, K::TILDE},
      {S::Period, K::PERIOD},
      {S::Comma, K::COMMA},
      {S::Slash, K::SLASH},
      {S::Equal, K::EQUAL},
      {S::Backslash, K::BACKSLASH},
      {S::Multiply, K::MULTIPLY},
      {S::Quote, K::QUOTE},
      {S::Semicolon, K::SEMICOLON},
      {S::LControl, K::LEFTCONTROL},
      {S::RControl, K::RIGHTCONTROL},
      {S::LShift, K::LEFTSHIFT},
      {S::RShift, K::RIGHTSHIFT},
      {S::Backspace, K::BACKSPACE},
      {S::LBracket, K::LEFTBRACKET},
      {S::RBracket, K::RIGHTBRACKET},
      {S::Num0, K::NUM0},  // after NUM9, in the order of the top row
  };

  for (const auto& row : table)
    EXPECT_EQ(row.second, ot::toEventKeyboard(keyEvent(row.first)).getKey()) << row.first;
  for (int i = 0; i < 12; i++)
    EXPECT_EQ(K::F1 + i, ot::toEventKeyboard(keyEvent(static_cast<S::Key>(S::F1 + i))).getKey());
  for (int i = 0; i < 26; i++)
    EXPECT_EQ(K::A + i,
              ot::toEventKeyboard(keyEvent(static_cast<S::Key>(S::A + i), sf::Event::KeyReleased)).getKey());
  for (int i = 1; i <= 9; i++)
    EXPECT_EQ(K::NUM1 + i - 1, ot::toEventKeyboard(keyEvent(static_cast<S::Key>(S::Num0 + i))).getKey());
}

TEST_F(InputManagerTest, KeysWithoutCodeGiveMinusOneAndWarning) {
  // The main hyphen key is not MINUS, which is the number pad's.
  EXPECT_EQ(-1, ot::toEventKeyboard(keyEvent(sf::Keyboard::Hyphen)).getKey());
  EXPECT_EQ(-1, ot::toEventKeyboard(keyEvent(sf::Keyboard::Numpad5, sf::Event::KeyReleased)).getKey());
  EXPECT_EQ(-1, ot::toEventKeyboard(keyEvent(sf::Keyboard::F15)).getKey());
  EXPECT_EQ(-1, ot::toEventKeyboard(keyEvent(sf::Keyboard::Unknown)).getKey());
  auto messages = logMessages();
  EXPECT_TRUE(
      ot_test::logHas(messages, "InputManager::toEventKeyboard(): Warning key 'Hyphen' not handled."));
  EXPECT_TRUE(
      ot_test::logHas(messages, "InputManager::toEventKeyboard(): Warning key 'Numpad5' not handled."));
  EXPECT_TRUE(ot_test::logHas(messages, "InputManager::toEventKeyboard(): Warning key 'F15' not handled."));
  EXPECT_TRUE(
      ot_test::logHas(messages, "InputManager::toEventKeyboard(): Warning key 'code -1' not handled."));
}

TEST_F(InputManagerTest, NonKeyEventGivesMinusOneAndError) {
  sf::Event event{};
  event.type = sf::Event::MouseMoved;
  EXPECT_EQ(-1, ot::toEventKeyboard(event).getKey());
  EXPECT_TRUE(ot_test::logHas(logMessages(), "toEventKeyboard(): Error! Called with non-keyboard event."));
}

class InputManagerTraceTest : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 15; }
};

TEST_F(InputManagerTraceTest, EveryKeyEventIsTracedAtLevelFifteen) {
  ot::toEventKeyboard(keyEvent(sf::Keyboard::Q));
  ot::toEventKeyboard(keyEvent(sf::Keyboard::Enter));
  ot::toEventKeyboard(keyEvent(sf::Keyboard::Hyphen));
  auto messages = logMessages();
  EXPECT_TRUE(ot_test::logHas(messages, "InputManager::toEventKeyboard(): Keyboard event 'Q' (Q)"));
  EXPECT_TRUE(ot_test::logHas(messages, "InputManager::toEventKeyboard(): Keyboard event '' (Enter)"));
  EXPECT_TRUE(ot_test::logHas(messages, "InputManager::toEventKeyboard(): Keyboard event '' (Hyphen)"));
}

TEST(InputManagerKeys, KeyToStringFollowsTable) {
  const std::pair<int, std::string> table[] = {
      {K::SPACE, " "},
      {K::RETURN, ""},
      {K::F11, ""},
      {K::MINUS, "-"},
      {K::PLUS, "+"},
      {K::TILDE, "~"},
      {K::BACKSLASH, "\\"},
      {K::QUOTE, "'"},
      {K::SEMICOLON, ";"},
      {K::MULTIPLY, "*"},
      {K::A, "A"},
      {K::Z, "Z"},
      {K::NUM1, "1"},
      {K::NUM0, "0"},
      {K::LEFTBRACKET, "["},
      {K::RIGHTBRACKET, "]"},
      {K::BACKQUOTE, "`"},
      {73, ""},
      {-1, ""},
      {77, ""},  // the free code, the undefined key, past the table
  };
  for (const auto& row : table) EXPECT_EQ(row.second, ot::keyToString(row.first)) << row.first;
}

TEST_F(InputManagerTest, OnlyKeyboardAndMouseMayRegister) {
  auto* p_spy = new ot_test::SpyObject;
  EXPECT_EQ(0, p_spy->registerInterest(ot::KEYBOARD_EVENT));
  EXPECT_EQ(0, p_spy->registerInterest(ot::MOUSE_EVENT));
  EXPECT_FALSE(InputManager::getInstance().isValid(ot::STEP_EVENT));
  EXPECT_FALSE(InputManager::getInstance().isValid(ot::VIEW_EVENT));
}

TEST_F(InputManagerTest, HeadlessGivesNoInput) {
  auto* p_spy = new ot_test::SpyObject;
  p_spy->registerInterest(ot::KEYBOARD_EVENT);
  p_spy->registerInterest(ot::MOUSE_EVENT);
  InputManager::getInstance().getInput();
  ot_test::runFrames(3);
  EXPECT_EQ(0, p_spy->count(ot::KEYBOARD_EVENT));
  EXPECT_EQ(0, p_spy->count(ot::MOUSE_EVENT));
}

TEST_F(InputManagerTest, OnlyHeadlessStartNeedsNoDisplay) {
  InputManager& input = InputManager::getInstance();
  ot::DisplayManager& display = ot::DisplayManager::getInstance();
  input.shutDown();
  display.shutDown();
  ot::Config::getInstance().setHeadless(false);
  EXPECT_EQ(-1, input.startUp());
  ot::Config::getInstance().setHeadless(true);
  EXPECT_EQ(0, input.startUp());
  EXPECT_EQ(-1, input.startUp());
  EXPECT_EQ(0, display.startUp());
  auto messages = logMessages();
  EXPECT_TRUE(
      ot_test::logHas(messages, "InputManager::startUp(): Error! DisplayManager must be started first."));
  EXPECT_TRUE(ot_test::logHas(messages, "InputManager::startUp(): no input in headless mode."));
  EXPECT_TRUE(ot_test::logHas(messages, "InputManager::startup(): Warning! InputManager already started."));
}

TEST_F(InputManagerTest, MissingWindowReportedEachFrame) {
  auto* p_spy = new ot_test::SpyObject;
  p_spy->registerInterest(ot::KEYBOARD_EVENT);
  // A headless display has no window; without headless set, that is an error.
  ot::Config::getInstance().setHeadless(false);
  InputManager::getInstance().getInput();
  InputManager::getInstance().getInput();
  ot::Config::getInstance().setHeadless(true);
  EXPECT_EQ(0, p_spy->count(ot::KEYBOARD_EVENT));
  EXPECT_EQ(2,
            ot_test::logCount(logMessages(),
                              "InputManager::getInput(): DisplayManager unexpectedly returned null window!"));
}

}  // namespace
