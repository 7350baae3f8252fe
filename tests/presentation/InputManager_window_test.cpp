#include "engine/presentation/InputManager.h"

#include <SFML/Graphics/RenderWindow.hpp>
#include <cstdlib>
#include <tuple>

#include "engine/core/EventKeyboard.h"
#include "engine/core/EventLabels.h"
#include "engine/core/EventMouse.h"
#include "engine/core/GameManager.h"
#include "engine/presentation/DisplayManager.h"
#include "tests/support/FontFile.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

// Last: Xlib's macros (None, Status, ...) would clash with the headers above.
#include <X11/Xlib.h>
#include <X11/keysym.h>

// Drives a real window under Xvfb. X delivers xdotool's input at its own pace,
// so each step runs real frames until the awaited event shows, within a bound.
namespace {

namespace K = ot::Keyboard;
using ot::Vector;
using What = std::tuple<std::string, int, int>;  // label, action, key or button
using Input = std::tuple<int, What, Vector>;     // frame, what, mouse position

const std::string KB = ot::KEYBOARD_EVENT, MOUSE = ot::MOUSE_EVENT;

class InputManagerWindow : public ot_test::HeadlessEngine {
 protected:
  std::string configText() const override {
    return "headless:false,\nnetworking:false,\nframe_time:20,\nfont_file:" + ot_test::fontFile() + ",\n";
  }
  int logLevel() const override { return 1; }

  void SetUp() override {
    HeadlessEngine::SetUp();
    if (HasFatalFailure()) return;
    ASSERT_NE(nullptr, ot::DisplayManager::getInstance().getWindow());
    auto* p_spy = new ot_test::SpyObject;
    for (const std::string& label : {ot::STEP_EVENT, KB, MOUSE}) p_spy->registerInterest(label);
    p_spy->on_event = [this](ot_test::SpyObject&, const ot::Event* p_e) {
      if (p_e->getType() == ot::STEP_EVENT) {
        m_frame++;
        if (--m_run_left <= 0 || (m_done && m_done())) ot::GameManager::getInstance().setGameOver(true);
      }
      if (auto* p_key = dynamic_cast<const ot::EventKeyboard*>(p_e))
        m_inputs.emplace_back(m_frame, What{KB, p_key->getKeyboardAction(), p_key->getKey()}, Vector());
      if (auto* p_mouse = dynamic_cast<const ot::EventMouse*>(p_e))
        m_inputs.emplace_back(m_frame, What{MOUSE, p_mouse->getMouseAction(), p_mouse->getMouseButton()},
                              p_mouse->getMousePosition());
    };
    runFrames(3);  // the window must be shown before it can take the focus
    ASSERT_EQ(0, xdotool("windowfocus --sync " + std::to_string(window())));
  }

  void TearDown() override {
    // The X server outlives the test: leave nothing held for the next one.
    xdotool("keyup a keyup BackSpace keyup F11 keyup F12 keyup bracketleft mouseup 1");
    HeadlessEngine::TearDown();
  }

  static int xdotool(const std::string& args) {
    return std::system(("timeout 10 xdotool " + args + " >/dev/null 2>&1").c_str());
  }
  static Window window() { return ot::DisplayManager::getInstance().getWindow()->getSystemHandle(); }

  // Runs frames until done() holds at the start of one (which still runs), or
  // max have run. At a frame's start the previous frame's input is whole.
  void runFrames(int max, std::function<bool()> done = {}) {
    m_run_left = max;
    m_done = std::move(done);
    ot::GameManager::getInstance().run();
  }
  void runUntil(std::function<bool()> done) { runFrames(150, std::move(done)); }  // 3 s

  // Indexes in the record of the matching inputs, of one frame or (0) of all.
  std::vector<size_t> match(const What& what, int frame = 0) const {
    std::vector<size_t> found;
    for (size_t i = 0; i < m_inputs.size(); i++) {
      if (std::get<1>(m_inputs[i]) == what && (frame == 0 || frameOf(i) == frame)) found.push_back(i);
    }
    return found;
  }
  int frameOf(size_t i) const { return std::get<0>(m_inputs[i]); }

  std::vector<Input> m_inputs;
  int m_frame = 0, m_run_left = 0;  // frames count across runs
  std::function<bool()> m_done;
};

TEST_F(InputManagerWindow, HeldKeyIsDownEveryFrame) {
  const What pressed{KB, ot::KEY_PRESSED, K::A}, down{KB, ot::KEY_DOWN, K::A},
      released{KB, ot::KEY_RELEASED, K::A};
  ASSERT_EQ(0, xdotool("keydown a keydown F11 keydown F12 keydown BackSpace keydown bracketleft"));
  runUntil([&] { return !match({KB, ot::KEY_PRESSED, K::LEFTBRACKET}).empty(); });
  runFrames(5);
  int last_held = m_frame;
  ASSERT_EQ(0, xdotool("keyup a keyup F11 keyup F12 keyup BackSpace keyup bracketleft key minus"));
  runUntil([&] { return !match({KB, ot::KEY_RELEASED, -1}).empty(); });
  runFrames(3);

  int press = frameOf(match(pressed).at(0)), release = frameOf(match(released).at(0));
  // Between the key's release and its event a frame may already poll it up.
  for (int frame = press; frame <= last_held; frame++) EXPECT_EQ(1u, match(down, frame).size()) << frame;
  for (int frame = release + 1; frame <= m_frame; frame++) EXPECT_TRUE(match(down, frame).empty()) << frame;
  EXPECT_LT(match(pressed, press), match(down, press));  // the queue is read before the polling
  for (int key : {K::A, K::F11, K::F12, K::BACKSPACE, K::LEFTBRACKET}) {
    EXPECT_EQ(1u, match({KB, ot::KEY_PRESSED, key}).size()) << key;
    EXPECT_EQ(1u, match({KB, ot::KEY_RELEASED, key}).size()) << key;
    EXPECT_EQ(key == K::F11 || key == K::F12, match({KB, ot::KEY_DOWN, key}).empty()) << key;
  }
  EXPECT_EQ(1u, match({KB, ot::KEY_PRESSED, -1}).size());  // the main hyphen key has no code
  EXPECT_TRUE(match({KB, ot::KEY_DOWN, K::MINUS}).empty());
  EXPECT_EQ(2, ot_test::logCount(logMessages(),
                                 "InputManager::toEventKeyboard(): Warning key 'Hyphen' not handled."));
}

TEST_F(InputManagerWindow, HeldButtonIsPressedEveryFrame) {
  const What clicked{MOUSE, ot::CLICKED, ot::Mouse::LEFT}, pressed{MOUSE, ot::PRESSED, ot::Mouse::LEFT};
  ASSERT_EQ(0, xdotool("mousemove --window " + std::to_string(window()) + " 200 150 mousedown 1"));
  runUntil([&] { return !match(clicked).empty(); });
  runFrames(5);
  int last_held = m_frame;
  ASSERT_EQ(0, xdotool("mouseup 1"));
  runUntil([&] { return match(pressed, m_frame - 1).empty(); });

  ASSERT_EQ(1u, match(clicked).size());
  int click = frameOf(match(clicked)[0]);
  for (int frame = click; frame <= last_held; frame++) EXPECT_EQ(1u, match(pressed, frame).size()) << frame;
  EXPECT_LT(match(clicked, click), match(pressed, click));
  // 1024 by 768 pixels for 80 by 24 spaces.
  for (const auto& [frame, what, xy] : m_inputs)
    EXPECT_TRUE((what != clicked && what != pressed) || xy == Vector(15.625f, 4.6875f)) << frame;
  EXPECT_FALSE(match({MOUSE, ot::MOVED, -1}).empty());  // the move into place, without a button
}

TEST_F(InputManagerWindow, ClosingTheWindowSetsGameOver) {
  // The close, then a key press behind it, in one connection and so in order.
  ::Display* p_x = XOpenDisplay(nullptr);
  ASSERT_NE(nullptr, p_x);
  XEvent close{}, key{};
  close.xclient = {ClientMessage, 0, True, p_x, window(), XInternAtom(p_x, "WM_PROTOCOLS", False), 32, {}};
  close.xclient.data.l[0] = static_cast<long>(XInternAtom(p_x, "WM_DELETE_WINDOW", False));
  key.xkey = {KeyPress, 0, True, p_x, window(), DefaultRootWindow(p_x),      0,   CurrentTime,
              0,        0, 0,    0,   0,        XKeysymToKeycode(p_x, XK_a), True};
  XSendEvent(p_x, window(), False, NoEventMask, &close);
  XSendEvent(p_x, window(), False, KeyPressMask, &key);
  XSync(p_x, False);
  XCloseDisplay(p_x);

  runFrames(3);
  EXPECT_EQ(3 + 1, m_frame);  // the set-up's frames and one more
  EXPECT_TRUE(match({KB, ot::KEY_PRESSED, K::A}).empty());
  EXPECT_TRUE(ot_test::logHas(logMessages(), "InputManager::getInput(): Window closed. Setting game over."));
  ot::InputManager::getInstance().getInput();
  EXPECT_EQ(1u, match({KB, ot::KEY_PRESSED, K::A}).size());  // it waited in the queue
}

}  // namespace
