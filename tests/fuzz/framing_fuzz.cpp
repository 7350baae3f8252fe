// A byte stream cut into messages by genDataEvents: the input arrives whole on
// a fresh loopback connection, every message that can be had is delivered,
// then the sender leaves and the rest is given up. Each DATA event must carry
// one whole block, as long as its own length field says.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "engine/core/EventLabels.h"
#include "engine/network/DataEvents.h"
#include "engine/network/EventNetwork.h"
#include "engine/network/NetworkManager.h"
#include "engine/platform/Platform.h"
#include "engine/platform/Socket.h"
#include "engine/world/Object.h"
#include "tests/fuzz/FuzzEngine.h"

namespace {

// Bounds every wait on the loopback, in milliseconds.
constexpr int WAIT_MS = 5000;
// More than this would wait on the system's buffers while nobody reads.
constexpr std::size_t MAX_STREAM = 64 * 1024;

ot::platform::SocketAddress g_server;

// Reads every message it is given, as a game's handler would copy it.
class Reader : public ot::Object {
 public:
  Reader() {
    setType("FuzzReader");
    registerInterest(ot::NETWORK_EVENT);
  }
  int eventHandler(const ot::Event* p_e) override {
    auto* p_net = dynamic_cast<const ot::EventNetwork*>(p_e);
    if (!p_net || p_net->getLabel() != ot::DATA) return 0;
    if (!p_net->getMessage() || p_net->getBytes() < 4) ot_fuzz::fail("a DATA event without a whole header");
    m_copy.assign(static_cast<const char*>(p_net->getMessage()), static_cast<std::size_t>(p_net->getBytes()));
    std::int32_t length = 0;
    std::memcpy(&length, m_copy.data(), sizeof(length));
    if (length != p_net->getBytes()) ot_fuzz::fail("a DATA event's size differs from its block's length");
    received += m_copy.size();
    return 1;
  }
  std::size_t received = 0;

 private:
  std::string m_copy;
};

Reader* g_p_reader = nullptr;

// Accepts whatever waits and closes every connection. A connect cut short by
// the fuzzer's timer signal still completes in the system, and would otherwise
// be taken for the next input's connection.
void dropConnections() {
  ot::NetworkManager& network = ot::NetworkManager::getInstance();
  while (network.accept() >= 0) {
  }
  network.close(-1);
}

// A new loopback connection: the sending end in *p_peer, and the engine's end,
// or -1. Connecting is tried again while it fails, since a million short
// connections may leave no local port free for a moment.
int connectPeer(int* p_peer) {
  ot::NetworkManager& network = ot::NetworkManager::getInstance();
  *p_peer = -1;
  for (int waited = 0; waited < WAIT_MS && *p_peer < 0; waited++) {
    *p_peer = ot::platform::openSocketFor(g_server);
    if (*p_peer >= 0 && ot::platform::connectSocket(*p_peer, g_server) != 0) {
      ot::platform::closeSocket(*p_peer);
      *p_peer = -1;
      dropConnections();
    }
    if (*p_peer < 0) ot::platform::sleepMilliseconds(1);
  }
  if (*p_peer < 0) {
    fprintf(stderr, "fuzz: connecting: %s\n",
            ot::platform::socketErrorText(ot::platform::lastSocketError()).c_str());
    return -1;
  }
  for (int waited = 0; waited < WAIT_MS; waited++) {
    int index = network.accept();
    if (index >= 0) return index;
    ot::platform::sleepMilliseconds(1);
  }
  return -1;
}

bool sendAll(int sock, const std::uint8_t* data, std::size_t size) {
  std::size_t sent = 0;
  while (sent < size) {
    int count = ot::platform::sendBytes(sock, data + sent, size - sent);
    if (count <= 0) return false;
    sent += static_cast<std::size_t>(count);
  }
  return true;
}

// Whether the engine's end holds at least bytes, or is gone.
bool arrived(int index, int bytes) {
  ot::NetworkManager& network = ot::NetworkManager::getInstance();
  for (int waited = 0; waited < WAIT_MS; waited++) {
    if (!network.isConnected(index) || network.isData(index) >= bytes) return true;
    ot::platform::sleepMilliseconds(1);
  }
  return false;
}

// Delivers messages until none is whole or the socket is gone.
void pump(int index, std::size_t size) {
  // Each message is at least a header long, so this many calls suffice.
  for (std::size_t calls = 0; calls <= size / 4 + 1; calls++) {
    if (ot::genDataEvents(index) != 1) return;
  }
  ot_fuzz::fail("more DATA events than the stream holds headers");
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  if (!ot_fuzz::startEngine(true)) abort();
  ot::NetworkManager& network = ot::NetworkManager::getInstance();
  if (network.setServer(true, "0") != 0) abort();
  const std::string port = std::to_string(network.getServerPort());
  if (ot::platform::resolveAddress("127.0.0.1", port, &g_server) != 0) abort();
  g_p_reader = new Reader;  // the world owns it
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > MAX_STREAM) size = MAX_STREAM;
  ot::NetworkManager& network = ot::NetworkManager::getInstance();
  int peer = -1;
  const int index = connectPeer(&peer);
  if (index < 0) ot_fuzz::fail("the engine did not accept the loopback connection");

  g_p_reader->received = 0;
  if (!sendAll(peer, data, size)) ot_fuzz::fail("the sending end could not send");
  if (!arrived(index, static_cast<int>(size))) {
    // The engine's end may still be another connection; told and given up.
    fprintf(stderr, "fuzz: %d of %zu bytes arrived in %d ms; input skipped\n", network.isData(index), size,
            WAIT_MS);
    ot::platform::closeSocket(peer);
    dropConnections();
    return 0;
  }
  pump(index, size);

  // The sender leaves: what is left can never be whole.
  ot::platform::closeSocket(peer);
  for (int waited = 0; waited < WAIT_MS && network.isConnected(index) && !network.isPeerClosed(index);
       waited++)
    ot::platform::sleepMilliseconds(1);
  pump(index, size);
  if (network.isConnected(index)) ot_fuzz::fail("a connection whose peer left is still open");
  if (g_p_reader->received > size) ot_fuzz::fail("more bytes delivered than were sent");
  dropConnections();
  return 0;
}
