#include "engine/ostrel.h"

// An @ that walks while an arrow key is held; Q ends the game.
class Walker : public ot::Object {
 public:
  Walker() {
    setPosition(ot::Vector(40, 12));
    registerInterest(ot::KEYBOARD_EVENT);
  }
  int eventHandler(const ot::Event* p_e) override {
    auto* p_key = dynamic_cast<const ot::EventKeyboard*>(p_e);
    if (!p_key) return 0;
    if (p_key->getKey() == ot::Keyboard::Q) ot::GameManager::getInstance().setGameOver();
    if (p_key->getKeyboardAction() != ot::KEY_DOWN) return 0;
    ot::Vector step;
    switch (p_key->getKey()) {
      case ot::Keyboard::LEFTARROW: step = ot::Vector(-1, 0); break;
      case ot::Keyboard::RIGHTARROW: step = ot::Vector(1, 0); break;
      case ot::Keyboard::UPARROW: step = ot::Vector(0, -1); break;
      case ot::Keyboard::DOWNARROW: step = ot::Vector(0, 1); break;
      default: return 0;
    }
    return ot::WorldManager::getInstance().moveObject(this, getPosition() + step) == 0;
  }
  int draw() override { return ot::DisplayManager::getInstance().drawCh(getPosition(), '@', ot::YELLOW); }
};

int main() {
  ot::GameManager& game = ot::GameManager::getInstance();
  if (game.startUp() == 0) {
    new Walker;  // the world owns it from here on
    game.run();
  }
  game.shutDown();
}
