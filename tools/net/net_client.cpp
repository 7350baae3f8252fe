// The client half of the network example: connects to the server, applies
// every update it sends to a copy of the server's object and draws it, with
// a count of the updates on the HUD.
//
//   ostrel-net-client [host [port [updates [screenshot.png]]]]
//
// Defaults: 127.0.0.1, 9876, and no end but the server's or the window's.
// Given a number of updates, it saves a screenshot after that many and ends.
// Run it from the repository root; it waits up to 5 s for the server to listen.

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <sstream>
#include <string>

#include "Courier.h"
#include "engine/core/Config.h"
#include "engine/core/EventLabels.h"
#include "engine/core/EventView.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/network/DataEvents.h"
#include "engine/network/EventNetwork.h"
#include "engine/network/NetworkManager.h"
#include "engine/platform/Platform.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/presentation/ViewObject.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"

namespace {

// Reads the server's messages once a step, applies them to the copy, and
// draws a trail of the last places they put it.
class Receiver : public ot::Object {
 public:
  Receiver(int sock, ot::Object* p_copy, int updates, std::string shot)
      : m_sock(sock), m_p_copy(p_copy), m_updates(updates), m_shot(std::move(shot)) {
    setSolidness(ot::SPECTRAL);
    setAltitude(1);
    registerInterest(ot::STEP_EVENT);
    registerInterest(ot::NETWORK_EVENT);
  }

  int draw() override {
    int result = 0;
    for (const ot::Vector& where : m_trail)
      result += ot::DisplayManager::getInstance().drawCh(where, '.', ot::WHITE);
    return result;
  }

  int eventHandler(const ot::Event* p_e) override {
    if (p_e->getType() == ot::STEP_EVENT) {
      // Before this frame's swap the back buffer still holds the last frame drawn.
      if (m_updates > 0 && m_applied >= m_updates) {
        m_saved = ot::DisplayManager::getInstance().saveScreenshot(m_shot) == 0;
        ot::GameManager::getInstance().setGameOver(true);
        return 1;
      }
      while (ot::genDataEvents(m_sock) == 1) {
      }
      return 1;
    }
    auto* p_net = dynamic_cast<const ot::EventNetwork*>(p_e);
    if (!p_net) return 0;
    if (p_net->getLabel() == ot::DATA) {
      // The message is the whole block; the serialized object follows its length.
      std::stringstream payload(std::string(static_cast<const char*>(p_net->getMessage()) + 4,
                                            static_cast<size_t>(p_net->getBytes() - 4)));
      if (m_p_copy->deserialize(&payload) == 0) {
        m_applied++;
        m_trail.push_back(m_p_copy->getPosition());
        if (m_trail.size() > TRAIL) m_trail.pop_front();
        ot::EventView count("Updates", 1, true);
        ot::WorldManager::getInstance().onEvent(&count);
      }
    } else if (p_net->getLabel() == ot::CLOSE) {
      std::printf("net client: the server left\n");
      ot::GameManager::getInstance().setGameOver(true);
    }
    return 1;
  }

  int applied() const { return m_applied; }
  bool saved() const { return m_saved; }

 private:
  int m_sock;
  ot::Object* m_p_copy;
  int m_updates;
  std::string m_shot;
  int m_applied = 0;
  bool m_saved = false;
  static constexpr size_t TRAIL = 40;
  std::deque<ot::Vector> m_trail;
};

}  // namespace

int main(int argc, char** argv) {
  std::string host = argc > 1 ? argv[1] : "127.0.0.1";
  std::string port = argc > 2 ? argv[2] : ot::DEFAULT_PORT;
  int updates = argc > 3 ? std::atoi(argv[3]) : 0;
  std::string shot = argc > 4 ? argv[4] : "net-client.png";
  setenv("OSTREL_CONFIG", "/dev/null", 1);
  setenv("OSTREL_LOG", "net-client.log", 0);
  setenv("ALSOFT_DRIVERS", "null", 0);
  ot::Config& config = ot::Config::getInstance();
  config.setNetworking(true);
  config.setWindowTitle("Ostrel network client");
  config.setFontFile(ot::findFontFile());
  ot::GameManager& game = ot::GameManager::getInstance();
  if (game.startUp() != 0) {
    std::fprintf(stderr,
                 "net client: the engine didn't start; without a display run it under xvfb-run "
                 "(see net-client.log)\n");
    game.shutDown();
    return 1;
  }
  ot::LogManager::getInstance().setFlush(true);
  ot::ResourceManager::getInstance().loadSprite(net_example::SPRITE_FILE, net_example::SPRITE_LABEL);

  // The server may still be starting.
  ot::NetworkManager& network = ot::NetworkManager::getInstance();
  int sock = -1;
  for (int tries = 0; tries < 50 && sock < 0; tries++) {
    sock = network.connect(host, port);
    if (sock < 0) ot::platform::sleepMilliseconds(100);
  }
  if (sock < 0) {
    std::fprintf(stderr, "net client: no server at %s port %s (start ostrel-net-server first)\n",
                 host.c_str(), port.c_str());
    game.shutDown();
    return 1;
  }
  std::printf("net client: connected to %s port %s\n", host.c_str(), port.c_str());

  auto* p_copy = new ot::Object;  // takes its looks and place from the server
  auto* p_title = new ot::ViewObject;
  p_title->setViewString("Ostrel network client");
  p_title->setDrawValue(false);
  p_title->setColor(ot::CYAN);
  auto* p_count = new ot::ViewObject;
  p_count->setLocation(ot::TOP_LEFT);
  p_count->setViewString("Updates");
  p_count->setColor(ot::YELLOW);
  auto* p_receiver = new Receiver(sock, p_copy, updates, shot);

  game.run();
  int applied = p_receiver->applied();
  bool saved = p_receiver->saved();
  std::string where = p_copy->getPosition().toString();
  game.shutDown();
  std::printf("net client: applied %d updates; the copy ended at %s\n", applied, where.c_str());
  if (updates > 0) {
    if (!saved) {
      std::fprintf(stderr, "net client: can't write %s\n", shot.c_str());
      return 1;
    }
    std::printf("net client: screenshot in %s\n", shot.c_str());
  }
  return 0;
}
