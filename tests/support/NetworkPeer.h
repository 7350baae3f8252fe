#pragma once

#include <string>
#include <utility>
#include <vector>

#include "engine/core/Types.h"
#include "engine/world/Object.h"
#include "tests/support/HeadlessEngine.h"

namespace ot_test {

// A headless engine with networking on, its NetworkManager listening on a
// loopback port that the system chose. Every wait below gives up after 5 s.
class NetworkEngine : public HeadlessEngine {
 protected:
  void SetUp() override;
  std::string configText() const override;

  // The server's port, as text for connect.
  std::string port() const;
  // Connects the manager to its own server and accepts: {client end, server end}.
  std::pair<int, int> connectToSelf();
};

// Accepts a connection that a peer has made; its index, or -1 if none came.
int acceptWaiting();
// Whether at least bytes came to be waiting on a socket of the manager.
bool waitForBytes(int sock, int bytes);
// Whether the peer of a socket of the manager was seen to close.
bool waitForPeerClose(int sock);
// A framed message: the 4-byte length of the whole, then the payload.
std::string frame(const std::string& payload);

// A bare TCP client on the engine's server, with none of the engine in
// between: it sends exactly the bytes a test gives, garbage included.
class PlainPeer {
 public:
  explicit PlainPeer(const std::string& port);
  ~PlainPeer();
  PlainPeer(const PlainPeer&) = delete;
  PlainPeer& operator=(const PlainPeer&) = delete;

  bool isOpen() const { return m_sock != -1; }
  void send(const std::string& bytes);
  // Sends what the system takes without waiting; how many bytes that was.
  size_t sendWithoutWaiting(const char* p_bytes, size_t count);
  // What arrives until bytes have come, the peer closes or the wait ends.
  std::string receive(int bytes);
  // Whether the engine's end closed the connection (or reset it).
  bool seesClose();
  void close();

 private:
  int m_sock = -1;
};

// What one network event carried; the message is copied, as handlers must.
struct NetworkRecord {
  ot::NetworkEventLabel label;
  int socket_index;
  int bytes;
  std::string message;
  int connections;  // the manager's count at the time
};

// Records every EventNetwork that reaches it.
class NetworkSpy : public ot::Object {
 public:
  NetworkSpy();
  int eventHandler(const ot::Event* p_e) override;
  // The labels in order of arrival.
  std::vector<ot::NetworkEventLabel> labels() const;

  std::vector<NetworkRecord> events;
};

}  // namespace ot_test
