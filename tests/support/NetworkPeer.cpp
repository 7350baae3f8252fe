#include "tests/support/NetworkPeer.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "engine/core/EventLabels.h"
#include "engine/network/EventNetwork.h"
#include "engine/network/NetworkManager.h"
#include "engine/platform/Platform.h"
#include "engine/platform/Socket.h"

namespace ot_test {

namespace {

constexpr int WAIT_MS = 5000;

ot::NetworkManager& network() { return ot::NetworkManager::getInstance(); }

}  // namespace

void NetworkEngine::SetUp() {
  HeadlessEngine::SetUp();
  network().setMaxConnections(3);
  ASSERT_EQ(0, network().setServer(true, "0"));
  ASSERT_GT(network().getServerPort(), 0);
}

std::string NetworkEngine::configText() const { return "headless:true,\nnetworking:true,\nrandom_seed:1,\n"; }

std::string NetworkEngine::port() const { return std::to_string(network().getServerPort()); }

std::pair<int, int> NetworkEngine::connectToSelf() {
  int client = network().connect("127.0.0.1", port());
  int server = client < 0 ? -1 : acceptWaiting();
  return {client, server};
}

int acceptWaiting() {
  // The connection reaches the listener's queue a moment after the peer's
  // connect returns; the listener doesn't block, so ask again for a while.
  for (int waited = 0; waited < WAIT_MS; waited++) {
    int sock = network().accept();
    if (sock >= 0) return sock;
    if (sock == -2) return -1;
    ot::platform::sleepMilliseconds(1);
  }
  return -1;
}

bool waitForBytes(int sock, int bytes) {
  for (int waited = 0; waited < WAIT_MS; waited++) {
    int have = network().isData(sock);
    if (have < 0) return false;
    if (have >= bytes) return true;
    ot::platform::sleepMilliseconds(1);
  }
  return false;
}

bool waitForPeerClose(int sock) {
  for (int waited = 0; waited < WAIT_MS; waited++) {
    if (network().isPeerClosed(sock)) return true;
    ot::platform::sleepMilliseconds(1);
  }
  return false;
}

std::string frame(const std::string& payload) {
  std::int32_t size = static_cast<std::int32_t>(payload.size() + 4);
  std::string block(4, '\0');
  std::memcpy(&block[0], &size, 4);
  return block + payload;
}

PlainPeer::PlainPeer(const std::string& port) {
  ot::platform::SocketAddress address;
  if (ot::platform::resolveAddress("127.0.0.1", port, &address) != 0) return;
  m_sock = ot::platform::openSocketFor(address);
  if (m_sock >= 0 && ot::platform::connectSocket(m_sock, address) != 0) close();
}

PlainPeer::~PlainPeer() { close(); }

void PlainPeer::send(const std::string& bytes) {
  size_t sent = 0;
  while (m_sock != -1 && sent < bytes.size()) {
    int count = ot::platform::sendBytes(m_sock, bytes.data() + sent, bytes.size() - sent);
    if (count <= 0) return;
    sent += static_cast<size_t>(count);
  }
}

size_t PlainPeer::sendWithoutWaiting(const char* p_bytes, size_t count) {
  if (m_sock == -1) return 0;
  ot::platform::setNonBlocking(m_sock);
  int sent = ot::platform::sendBytes(m_sock, p_bytes, count);
  return sent > 0 ? static_cast<size_t>(sent) : 0;
}

std::string PlainPeer::receive(int bytes) {
  std::string got;
  char buffer[4096];
  while (m_sock != -1 && static_cast<int>(got.size()) < bytes &&
         ot::platform::waitReadable(m_sock, WAIT_MS)) {
    size_t want = std::min(sizeof(buffer), static_cast<size_t>(bytes) - got.size());
    int count = ot::platform::receiveBytes(m_sock, buffer, want, false);
    if (count <= 0) break;
    got.append(buffer, static_cast<size_t>(count));
  }
  return got;
}

bool PlainPeer::seesClose() {
  char byte;
  // A close with bytes still unread at the engine's end arrives as a reset.
  return m_sock != -1 && ot::platform::waitReadable(m_sock, WAIT_MS) &&
         ot::platform::receiveBytes(m_sock, &byte, 1, true) <= 0;
}

void PlainPeer::close() {
  if (m_sock != -1) ot::platform::closeSocket(m_sock);
  m_sock = -1;
}

NetworkSpy::NetworkSpy() {
  setType("NetworkSpy");
  registerInterest(ot::NETWORK_EVENT);
}

int NetworkSpy::eventHandler(const ot::Event* p_e) {
  auto* p_net = dynamic_cast<const ot::EventNetwork*>(p_e);
  if (!p_net) return 0;
  std::string message;
  if (p_net->getMessage() && p_net->getBytes() > 0)
    message.assign(static_cast<const char*>(p_net->getMessage()), static_cast<size_t>(p_net->getBytes()));
  events.push_back({p_net->getLabel(), p_net->getSocketIndex(), p_net->getBytes(), message,
                    network().getNumConnections()});
  return 1;
}

std::vector<ot::NetworkEventLabel> NetworkSpy::labels() const {
  std::vector<ot::NetworkEventLabel> result;
  for (const NetworkRecord& record : events) result.push_back(record.label);
  return result;
}

}  // namespace ot_test
