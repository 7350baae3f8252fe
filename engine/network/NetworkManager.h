#pragma once

#include <string>
#include <vector>

#include "engine/core/Manager.h"

namespace ot {

// The TCP side of the engine: an optional listening socket and the connected
// sockets, raising network events. Started only when the configuration's
// networking is on. This is its first shape: it starts and stops, and has no
// sockets yet.
class NetworkManager : public Manager {
 public:
  static NetworkManager& getInstance();

  // The network labels only.
  bool isValid(std::string event_type) const override;
  ~NetworkManager() override = default;
  int startUp() override;
  void shutDown() override;

  bool isServer() const { return m_server_sock != -1; }
  // A new socket's index, -1 if none came, -2 when not a server.
  int accept();
  // Whether there is that socket; -1 asks for any.
  bool isConnected(int sock = -1) const;
  // Sends what the delay queues hold that is due; the sum of the sends.
  int sendDelayed();

 private:
  NetworkManager();

  int m_server_sock = -1;
  std::vector<int> m_sock;
};

}  // namespace ot
