#include "engine/presentation/InputManager.h"

#include <SFML/Window/Event.hpp>
#include <iterator>

#include "engine/core/Config.h"
#include "engine/core/EventKeyboard.h"
#include "engine/core/EventLabels.h"
#include "engine/presentation/DisplayManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

namespace {

namespace K = ot::Keyboard;
using S = sf::Keyboard;

int translate(int code, sf::Event::EventType type = sf::Event::KeyPressed) {
  sf::Event event{};
  event.type = type;
  event.key.code = static_cast<S::Key>(code);
  return ot::toEventKeyboard(event).getKey();
}

// Level 15 traces every key event, and shows the warnings of level 1.
class InputManagerTest : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 15; }
  ot::InputManager& input = ot::InputManager::getInstance();
};

TEST(InputManagerKeys, EverySfmlKeyWithACodeTranslates) {
  // Pairs of SFML key and code; NUM0 comes after NUM9, in the order of the top row.
  const int table[] = {
      S::Space,     K::SPACE,        S::Enter,     K::RETURN,      S::Escape,   K::ESCAPE,
      S::Tab,       K::TAB,          S::Left,      K::LEFTARROW,   S::Right,    K::RIGHTARROW,
      S::Up,        K::UPARROW,      S::Down,      K::DOWNARROW,   S::Pause,    K::PAUSE,
      S::Subtract,  K::MINUS,        S::Add,       K::PLUS,        S::Tilde,    K::TILDE,
      S::Period,    K::PERIOD,       S::Comma,     K::COMMA,       S::Slash,    K::SLASH,
      S::Equal,     K::EQUAL,        S::Backslash, K::BACKSLASH,   S::Multiply, K::MULTIPLY,
      S::Quote,     K::QUOTE,        S::Semicolon, K::SEMICOLON,   S::LControl, K::LEFTCONTROL,
      S::RControl,  K::RIGHTCONTROL, S::LShift,    K::LEFTSHIFT,   S::RShift,   K::RIGHTSHIFT,
      S::Backspace, K::BACKSPACE,    S::LBracket,  K::LEFTBRACKET, S::RBracket, K::RIGHTBRACKET,
      S::Num0,      K::NUM0};
  for (size_t i = 0; i < std::size(table); i += 2) EXPECT_EQ(table[i + 1], translate(table[i])) << table[i];
  for (int i = 0; i < 12; i++) EXPECT_EQ(K::F1 + i, translate(S::F1 + i));
  for (int i = 0; i < 26; i++) EXPECT_EQ(K::A + i, translate(S::A + i, sf::Event::KeyReleased));
  for (int i = 1; i <= 9; i++) EXPECT_EQ(K::NUM1 + i - 1, translate(S::Num0 + i));
  // keyToString gives the key's character, if it has one; no SFML key gives the back quote.
  const int keys[] = {K::SPACE, K::BACKSLASH, K::NUM0, K::Z, K::BACKQUOTE, K::RETURN, 73, -1};
  const std::string texts = " \\0Z`";
  for (size_t i = 0; i < std::size(keys); i++)
    EXPECT_EQ(i < texts.size() ? texts.substr(i, 1) : "", ot::keyToString(keys[i])) << keys[i];
}

// The window test covers the main hyphen key, which has no code.
TEST_F(InputManagerTest, KeyWithoutACodeGivesMinusOne) {
  EXPECT_EQ(-1, translate(S::Unknown));
  EXPECT_EQ(-1, translate(S::A, sf::Event::MouseMoved));
  translate(S::Q, sf::Event::KeyReleased);
  auto log = logMessages();
  for (const char* line : {"InputManager::toEventKeyboard(): Warning key 'code -1' not handled.",
                           "toEventKeyboard(): Error! Called with non-keyboard event.",
                           "InputManager::toEventKeyboard(): Keyboard event 'Q' (Q)"})
    EXPECT_TRUE(ot_test::logHas(log, line)) << line;
}

TEST_F(InputManagerTest, HeadlessFramesGiveNoInput) {
  auto* p_spy = new ot_test::SpyObject;
  EXPECT_EQ(0, p_spy->registerInterest(ot::KEYBOARD_EVENT) + p_spy->registerInterest(ot::MOUSE_EVENT));
  EXPECT_FALSE(input.isValid(ot::STEP_EVENT) || input.isValid(ot::VIEW_EVENT));
  ot_test::runFrames(3);
  ot::Config::getInstance().setHeadless(false);
  input.getInput();
  input.getInput();
  EXPECT_EQ(0, p_spy->count(ot::KEYBOARD_EVENT) + p_spy->count(ot::MOUSE_EVENT));
  input.shutDown();
  ot::DisplayManager::getInstance().shutDown();
  EXPECT_EQ(-1, input.startUp());
  ot::Config::getInstance().setHeadless(true);
  EXPECT_EQ(0, input.startUp());
  auto log = logMessages();
  EXPECT_EQ(2, ot_test::logCount(
                   log, "InputManager::getInput(): DisplayManager unexpectedly returned null window!"));
  EXPECT_TRUE(ot_test::logHas(log, "InputManager::startUp(): Error! DisplayManager must be started first."));
}

}  // namespace
