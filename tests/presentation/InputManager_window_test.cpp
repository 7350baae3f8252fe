#include "engine/presentation/InputManager.h"

#include <gtest/gtest.h>

#include <SFML/Graphics.hpp>
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "engine/core/EventKeyboard.h"
#include "engine/core/EventLabels.h"
#include "engine/core/EventMouse.h"
#include "engine/core/GameManager.h"
#include "engine/presentation/DisplayManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

// Drives a real window under Xvfb with xdotool. X delivers the input after
// xdotool returns, at its own pace, so each step runs real frames until the
// awaited event shows, within a bounded number of frames.
namespace {

namespace K = ot::Keyboard;
using ot::Vector;

constexpr int MAX_WAIT_FRAMES = 150;  // 3 s at 20 ms a frame

struct Input {
  int frame;
  std::string label;
  int action;
  int code;  // key or button
  Vector position;
};

class InputWindowTest : public ot_test::HeadlessEngine {
 protected:
  std::string configText() const override {
    return "headless:false,\nnetworking:false,\nrandom_seed:1,\nframe_time:20,\n"
           "font_file:/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf,\n";
  }
  int logLevel() const override { return 1; }

  void SetUp() override {
    HeadlessEngine::SetUp();
    if (HasFatalFailure()) return;
    ASSERT_NE(nullptr, ot::DisplayManager::getInstance().getWindow());
    m_p_spy = new ot_test::SpyObject;
    m_p_spy->registerInterest(ot::STEP_EVENT);
    m_p_spy->registerInterest(ot::KEYBOARD_EVENT);
    m_p_spy->registerInterest(ot::MOUSE_EVENT);
    m_p_spy->on_event = [this](ot_test::SpyObject&, const ot::Event* p_e) { record(p_e); };
    // The window must be shown before it can take the focus.
    runFrames(3, [] { return false; });
    ASSERT_EQ(0, xdotool("windowfocus --sync " + windowId()));
  }

  void TearDown() override {
    // The X server outlives the test: leave nothing held for the next one.
    xdotool("keyup a keyup F11 keyup minus mouseup 1");
    HeadlessEngine::TearDown();
  }

  static int xdotool(const std::string& args) {
    return std::system(("timeout 10 xdotool " + args + " >/dev/null 2>&1").c_str());
  }

  static std::string windowId() {
    return std::to_string(ot::DisplayManager::getInstance().getWindow()->getSystemHandle());
  }

  // Runs frames until done() holds at the start of one (which still runs), or
  // max frames have run. At a frame's start the previous frame's input is whole.
  void runFrames(int max, std::function<bool()> done) {
    m_run_left = max;
    m_done = std::move(done);
    ot::GameManager::getInstance().run();
  }

  void runFramesUntil(std::function<bool()> done) { runFrames(MAX_WAIT_FRAMES, std::move(done)); }
  void runMoreFrames(int n) {
    runFrames(n, [] { return false; });
  }

  // Frames of the matching inputs, in order of arrival.
  std::vector<int> framesOf(const std::string& label, int action, int code) const {
    std::vector<int> frames;
    for (const Input& input : m_inputs) {
      if (input.label == label && input.action == action && input.code == code) frames.push_back(input.frame);
    }
    return frames;
  }
  int count(const std::string& label, int action, int code) const {
    return static_cast<int>(framesOf(label, action, code).size());
  }
  int countIn(int frame, const std::string& label, int action, int code) const {
    std::vector<int> frames = framesOf(label, action, code);
    return static_cast<int>(std::count(frames.begin(), frames.end(), frame));
  }
  // Where the first matching input of a frame stands in the record; -1 if none.
  int indexIn(int frame, const std::string& label, int action, int code) const {
    for (size_t i = 0; i < m_inputs.size(); i++) {
      const Input& in = m_inputs[i];
      if (in.frame == frame && in.label == label && in.action == action && in.code == code)
        return static_cast<int>(i);
    }
    return -1;
  }

  std::vector<Input> m_inputs;
  int m_frame = 0;  // counts across runs

 private:
  void record(const ot::Event* p_e) {
    if (p_e->getType() == ot::STEP_EVENT) {
      m_frame++;
      if (--m_run_left <= 0 || m_done()) ot::GameManager::getInstance().setGameOver(true);
    } else if (p_e->getType() == ot::KEYBOARD_EVENT) {
      auto* p_key = static_cast<const ot::EventKeyboard*>(p_e);
      m_inputs.push_back(
          {m_frame, ot::KEYBOARD_EVENT, p_key->getKeyboardAction(), p_key->getKey(), Vector()});
    } else if (p_e->getType() == ot::MOUSE_EVENT) {
      auto* p_mouse = static_cast<const ot::EventMouse*>(p_e);
      m_inputs.push_back({m_frame, ot::MOUSE_EVENT, p_mouse->getMouseAction(), p_mouse->getMouseButton(),
                          p_mouse->getMousePosition()});
    }
  }

  ot_test::SpyObject* m_p_spy = nullptr;
  int m_run_left = 0;
  std::function<bool()> m_done;
};

TEST_F(InputWindowTest, HeldKeyPressesOnceIsDownEveryFrameAndReleasesOnce) {
  const std::string kb = ot::KEYBOARD_EVENT;
  ASSERT_EQ(0, xdotool("keydown a"));
  runFramesUntil([&] { return count(kb, ot::KEY_PRESSED, K::A) > 0; });
  runMoreFrames(5);
  int last_held = m_frame;
  ASSERT_EQ(0, xdotool("keyup a"));
  runFramesUntil([&] { return count(kb, ot::KEY_RELEASED, K::A) > 0; });
  runMoreFrames(3);

  ASSERT_EQ(1, count(kb, ot::KEY_PRESSED, K::A));
  ASSERT_EQ(1, count(kb, ot::KEY_RELEASED, K::A));
  int pressed = framesOf(kb, ot::KEY_PRESSED, K::A)[0];
  int released = framesOf(kb, ot::KEY_RELEASED, K::A)[0];
  EXPECT_GT(released, last_held);
  // Between the key's release and its event a frame may already poll it up.
  for (int frame = pressed; frame <= last_held; frame++)
    EXPECT_EQ(1, countIn(frame, kb, ot::KEY_DOWN, K::A)) << "frame " << frame;
  for (int frame = released + 1; frame <= m_frame; frame++)
    EXPECT_EQ(0, countIn(frame, kb, ot::KEY_DOWN, K::A)) << "frame " << frame;
  // The queue is read before the keyboard is polled.
  EXPECT_LT(indexIn(pressed, kb, ot::KEY_PRESSED, K::A), indexIn(pressed, kb, ot::KEY_DOWN, K::A));
}

TEST_F(InputWindowTest, F11IsNeverDownAndHyphenHasNoCode) {
  const std::string kb = ot::KEYBOARD_EVENT;
  ASSERT_EQ(0, xdotool("keydown F11"));
  runFramesUntil([&] { return count(kb, ot::KEY_PRESSED, K::F11) > 0; });
  runMoreFrames(3);
  ASSERT_EQ(0, xdotool("keyup F11 key minus"));
  runFramesUntil([&] { return count(kb, ot::KEY_RELEASED, -1) > 0; });

  EXPECT_EQ(1, count(kb, ot::KEY_PRESSED, K::F11));
  EXPECT_EQ(1, count(kb, ot::KEY_RELEASED, K::F11));
  EXPECT_EQ(0, count(kb, ot::KEY_DOWN, K::F11));
  EXPECT_EQ(1, count(kb, ot::KEY_PRESSED, -1));
  EXPECT_EQ(0, count(kb, ot::KEY_DOWN, K::MINUS));
  EXPECT_EQ(2, ot_test::logCount(logMessages(),
                                 "InputManager::toEventKeyboard(): Warning key 'Hyphen' not handled."));
}

TEST_F(InputWindowTest, HeldButtonClicksOnceAndIsPressedEveryFrame) {
  const std::string mouse = ot::MOUSE_EVENT;
  // 1024 by 768 pixels for 80 by 24 spaces.
  const Vector where = ot::pixelsToSpaces(Vector(200, 150));
  ASSERT_EQ(Vector(15.625f, 4.6875f), where);
  ASSERT_EQ(0, xdotool("mousemove --window " + windowId() + " 200 150 mousedown 1"));
  runFramesUntil([&] { return count(mouse, ot::CLICKED, ot::Mouse::LEFT) > 0; });
  runMoreFrames(5);
  int last_held = m_frame;
  ASSERT_EQ(0, xdotool("mouseup 1"));
  runFramesUntil([&] { return countIn(m_frame - 1, mouse, ot::PRESSED, ot::Mouse::LEFT) == 0; });

  ASSERT_EQ(1, count(mouse, ot::CLICKED, ot::Mouse::LEFT));
  int clicked = framesOf(mouse, ot::CLICKED, ot::Mouse::LEFT)[0];
  EXPECT_EQ(0, count(mouse, ot::CLICKED, ot::Mouse::RIGHT));
  for (int frame = clicked; frame <= last_held; frame++)
    EXPECT_EQ(1, countIn(frame, mouse, ot::PRESSED, ot::Mouse::LEFT)) << "frame " << frame;
  EXPECT_LT(indexIn(clicked, mouse, ot::CLICKED, ot::Mouse::LEFT),
            indexIn(clicked, mouse, ot::PRESSED, ot::Mouse::LEFT));
  for (const Input& input : m_inputs) {
    if (input.label != mouse) continue;
    if (input.action == ot::CLICKED || input.action == ot::PRESSED) {
      EXPECT_EQ(where, input.position);
    }
  }
  // The move into place comes as MOVED without a button.
  EXPECT_LE(1, count(mouse, ot::MOVED, -1));
}

}  // namespace
