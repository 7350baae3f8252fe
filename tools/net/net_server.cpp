// The server half of the network example: an object circles the world, and
// every frame what changed of it goes, serialized and framed, to each client.
// A client that joins gets the whole object first. Headless: no window.
//
//   ostrel-net-server [port]     (default 9876)
//
// It ends when its last client leaves (or on Ctrl+C). Run it from the
// repository root, where sprites/examples/ is.

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

#include "Courier.h"
#include "engine/core/Config.h"
#include "engine/core/EventLabels.h"
#include "engine/core/EventStep.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/network/EventNetwork.h"
#include "engine/network/NetworkManager.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/world/Object.h"

namespace {

using ot::Vector;

// Moves the courier each step and tells the clients.
class Broadcaster : public ot::Object {
 public:
  explicit Broadcaster(ot::Object* p_courier) : m_p_courier(p_courier) {
    setSolidness(ot::SPECTRAL);
    setVisible(false);
    registerInterest(ot::STEP_EVENT);
    registerInterest(ot::NETWORK_EVENT);
  }

  int eventHandler(const ot::Event* p_e) override {
    if (p_e->getType() == ot::STEP_EVENT) {
      int step = static_cast<const ot::EventStep*>(p_e)->getStepCount();
      float angle = static_cast<float>(step) * 0.05f;
      m_p_courier->setPosition(Vector(40 + 30 * std::cos(angle), 12 + 8 * std::sin(angle)));
      // Only what a client may take: never the id or the interests.
      unsigned int changed = m_p_courier->getModified() & net_example::FULL_STATE;
      if (m_clients > 0 && changed != 0) send(changed, -1);
      return 1;
    }
    auto* p_net = dynamic_cast<const ot::EventNetwork*>(p_e);
    if (!p_net) return 0;
    if (p_net->getLabel() == ot::ACCEPT) {
      m_clients++;
      std::printf("net server: client %d joined\n", p_net->getSocketIndex());
      send(net_example::FULL_STATE, p_net->getSocketIndex());
    } else if (p_net->getLabel() == ot::CLOSE) {
      std::printf("net server: client %d left after %d updates\n", p_net->getSocketIndex(), m_sent);
      if (--m_clients == 0) ot::GameManager::getInstance().setGameOver(true);
    }
    std::fflush(stdout);
    return 1;
  }

 private:
  void send(unsigned int attr, int sock) {
    std::stringstream payload;
    m_p_courier->serialize(&payload, attr);
    std::string block = net_example::frame(payload);
    if (ot::NetworkManager::getInstance().send(block.data(), static_cast<int>(block.size()), sock) == 0)
      m_sent++;
  }

  ot::Object* m_p_courier;
  int m_clients = 0;
  int m_sent = 0;
};

}  // namespace

int main(int argc, char** argv) {
  std::string port = argc > 1 ? argv[1] : ot::DEFAULT_PORT;
  setenv("OSTREL_CONFIG", "/dev/null", 1);
  setenv("OSTREL_LOG", "net-server.log", 0);
  setenv("ALSOFT_DRIVERS", "null", 0);
  ot::Config& config = ot::Config::getInstance();
  config.setHeadless(true);
  config.setNetworking(true);
  ot::GameManager& game = ot::GameManager::getInstance();
  if (game.startUp() != 0) {
    std::fprintf(stderr, "net server: the engine didn't start (see net-server.log)\n");
    game.shutDown();
    return 1;
  }
  ot::LogManager::getInstance().setFlush(true);
  if (ot::NetworkManager::getInstance().setServer(true, port) != 0) {
    std::fprintf(stderr, "net server: can't listen on port %s (see net-server.log)\n", port.c_str());
    game.shutDown();
    return 1;
  }
  if (ot::ResourceManager::getInstance().loadSprite(net_example::SPRITE_FILE, net_example::SPRITE_LABEL) != 0)
    std::fprintf(stderr, "net server: no sprite (run from the repository root); the object goes bare\n");

  auto* p_courier = new ot::Object;
  p_courier->setType("Courier");
  p_courier->setSolidness(ot::SPECTRAL);
  p_courier->setSprite(net_example::SPRITE_LABEL);
  new Broadcaster(p_courier);
  std::printf("net server: listening on port %s\n", port.c_str());
  std::fflush(stdout);
  game.run();
  game.shutDown();
  return 0;
}
