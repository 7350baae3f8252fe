#include "engine/network/NetworkManager.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "engine/core/Config.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/network/EventNetwork.h"
#include "engine/platform/Socket.h"

namespace ot {

namespace {

// The system's error, under the line that named what failed.
void logSocketError(int code) {
  LogManager::getInstance().writeLog("\t%d - %s", code, platform::socketErrorText(code).c_str());
}

bool networkingOn() { return Config::getInstance().getNetworking(); }

}  // namespace

NetworkManager::NetworkManager() {
  setType("NetworkManager");
  m_sock.clear();
  m_delay.clear();
  m_delayed.clear();
  m_received.clear();
}

NetworkManager& NetworkManager::getInstance() {
  static NetworkManager network_manager;
  return network_manager;
}

bool NetworkManager::isValid(const std::string& event_type) const {
  if (event_type == NETWORK_EVENT || event_type == KEYBOARD_NETWORK_EVENT ||
      event_type == MOUSE_NETWORK_EVENT || event_type == NETWORK_CREATE_EVENT ||
      event_type == CUSTOM_NETWORK_EVENT || event_type == NETWORK_DELETE_EVENT ||
      event_type == NETWORK_GAME_OVER_EVENT || event_type == NETWORK_SYNC_EVENT)
    return true;
  LogManager::getInstance().writeLog("NetworkManager::isValid(): Error! NetworkManager does not handle %s.",
                                     event_type.c_str());
  return false;
}

int NetworkManager::startUp() {
  LogManager& log = LogManager::getInstance();
  if (refuseSecondStart()) return -1;
  if (platform::socketStartUp() != 0) {
    log.writeLog("NetworkManager::startUp(): Error! WSAStartup() code : %d", platform::lastSocketError());
    return 1;
  }
  Manager::startUp();
  log.writeLog(LOG_DETAIL, "NetworkManager::startUp(): successfully started.");
  return 0;
}

void NetworkManager::shutDown() {
  close(-1);
  // Departure: the listening socket goes too, so that a later start begins afresh.
  if (isServer()) platform::closeSocket(m_server_sock);
  m_server_sock = -1;
  if (platform::socketCleanUp() != 0) logSocketError(platform::lastSocketError());
  Manager::shutDown();
  LogManager::getInstance().writeLog(LOG_DETAIL, "NetworkManager::shutDown(): successfully stopped.");
}

int NetworkManager::setServer(bool server, const std::string& port) {
  LogManager& log = LogManager::getInstance();
  if (!networkingOn()) {
    log.writeLog(
        LOG_INFO,
        "NetworkManager::setServer(): Error! Networking is not enabled in the Ostrel configuration file.");
    return -1;
  }
  if (server && isServer()) return 0;
  if (!server) {
    if (isServer()) platform::closeSocket(m_server_sock);
    m_server_sock = -1;
    return 0;
  }
  m_server_sock = platform::openStreamSocket();
  if (m_server_sock < 0) {
    int code = platform::lastSocketError();
    log.writeLog("NetworkManager::setServer(): Error! socket() returned:");
    logSocketError(code);
    m_server_sock = -1;
    return -1;
  }
  // Departure: a half-made listener is closed, not left open behind -1.
  auto giveUp = [&](const char* p_message) {
    int code = platform::lastSocketError();
    log.writeLog("%s", p_message);
    logSocketError(code);
    platform::closeSocket(m_server_sock);
    m_server_sock = -1;
    return -1;
  };
  if (platform::bindAnyAddress(m_server_sock, static_cast<unsigned short>(atoi(port.c_str()))) != 0)
    return giveUp("NetworkManager::setServer(): Error! bind() returned:");
  if (platform::listenSocket(m_server_sock, 5) != 0)
    return giveUp("NetworkManager::setServer(): Error! listen() returned:");
  platform::setNonBlocking(m_server_sock);
  log.writeLog(LOG_INFO, "NetworkManager::setServer(): Ready for connections on port %s.", port.c_str());
  return 0;
}

int NetworkManager::getServerPort() const { return isServer() ? platform::localPort(m_server_sock) : -1; }

int NetworkManager::accept() {
  LogManager& log = LogManager::getInstance();
  if (!isServer()) {
    log.writeLog("NetworkManager::accept(): Error! Not setup as server.");
    return -2;
  }
  if (getNumConnections() >= m_max_connections) {
    // Kept quirk: the misspelling; log readers search for it.
    log.writeLog(LOG_LINES, "NetworkManager::accept(): Won't check for new connetions since at max.");
    log.writeLog(LOG_LINES, "\tUse NM.setMaxConnections() to change max.");
    return -1;
  }
  int system_sock = platform::acceptSocket(m_server_sock);
  if (system_sock < 0) {
    int code = platform::lastSocketError();
    if (platform::isWouldBlock(code)) {
      log.writeLog(LOG_EVENTS, "NetworkManager::accept(): No new connection. Not blocking.");
      return -1;
    }
    log.writeLog("NetworkManager::accept(): Error! accept() returned:");
    logSocketError(code);
    return -2;
  }
  int i = addSocket(system_sock);
  log.writeLog(LOG_INFO, "NetworkManager::accept(): New connection, socket %d.", i);
  EventNetwork event(ACCEPT);
  event.setSocketIndex(i);
  event.setBytes(0);
  onEvent(&event);
  return i;
}

int NetworkManager::connect(const std::string& host, const std::string& port) {
  LogManager& log = LogManager::getInstance();
  if (!networkingOn()) {
    log.writeLog(
        LOG_INFO,
        "NetworkManager::connect(): Error! Networking is not enabled in the Ostrel configuration file.");
    return -1;
  }
  log.writeLog(LOG_INFO, "NetworkManager::connect(): Connecting to %s, port %s.", host.c_str(), port.c_str());
  platform::SocketAddress address;
  if (platform::resolveAddress(host, port, &address) != 0) {
    int code = platform::lastSocketError();
    log.writeLog("NetworkManager::connect(): Error! getaddrinfo() returned:");
    logSocketError(code);
    return -1;
  }
  int system_sock = platform::openSocketFor(address);
  if (system_sock < 0) {
    int code = platform::lastSocketError();
    log.writeLog("NetworkManager::connect(): Error! socket() returned:");
    logSocketError(code);
    return -1;
  }
  if (platform::connectSocket(system_sock, address) != 0) {
    int code = platform::lastSocketError();
    log.writeLog("NetworkManager::connect(): Error! connect() returned:");
    logSocketError(code);
    platform::closeSocket(system_sock);
    return -1;
  }
  int i = addSocket(system_sock);
  EventNetwork event(CONNECT);
  event.setSocketIndex(i);
  event.setBytes(0);
  onEvent(&event);
  log.writeLog(LOG_INFO, "NetworkManager::connect(): Connection established.");
  log.writeLog(LOG_LINES, "NetworkManager::connect(): Socket is %d", system_sock);
  return i;
}

int NetworkManager::send(const void* buffer, int bytes, int sock) {
  LogManager& log = LogManager::getInstance();
  // Departure: -1 stands for all; any other value must be a socket's index,
  // where -2 would have read the list before its start.
  if (sock == -1 ? m_sock.empty() : !isIndex(sock)) {
    // Kept quirk: the line names isData; log readers search for it.
    log.writeLog(LOG_DETAIL, "NetworkManager::isData(): Warning! Sock %d not connected.", sock);
    return -1;
  }
  if (bytes < 0 || (!buffer && bytes > 0)) {
    log.writeLog("NetworkManager::send(): Error! No buffer of %d bytes to send.", bytes);
    return -1;
  }
  // By system socket, since a send that finds its connection closed shifts the indices.
  std::vector<int> targets = sock == -1 ? m_sock : std::vector<int>{m_sock[sock]};
  int result = 0;
  for (int system_sock : targets) {
    if (system_sock == -1 && sock == -1) continue;  // being closed
    auto found = std::find(m_sock.begin(), m_sock.end(), system_sock);
    if (found == m_sock.end()) continue;
    int i = static_cast<int>(found - m_sock.begin());
    if (m_delay[i] == 0) {
      result += sendNow(buffer, bytes, i);
      continue;
    }
    void* p_copy = std::malloc(bytes > 0 ? bytes : 1);
    if (!p_copy) {
      log.writeLog("NetworkManager::send(): Error!  Allocate buffer for delayed send (%d).", bytes);
      result -= 1;
      continue;
    }
    if (bytes > 0) std::memcpy(p_copy, buffer, bytes);
    DelayedMessage message;
    message.m_send_step = GameManager::getInstance().getStepCount() + m_delay[i];
    message.m_buffer.reset(p_copy);
    message.m_size = bytes;
    m_delayed[i].push_back(std::move(message));
  }
  return result;
}

int NetworkManager::sendNow(const void* buffer, int bytes, int sock) {
  LogManager& log = LogManager::getInstance();
  if (!isIndex(sock) || m_sock[sock] == -1) {
    log.writeLog("NetworkManager::send(): Error! Socket %d not connected. Unable to send.", sock);
    return -1;
  }
  if (bytes < 0 || (!buffer && bytes > 0)) {
    log.writeLog("NetworkManager::send(): Error! No buffer of %d bytes to send.", bytes);
    return -1;
  }
  log.writeLog(LOG_EVENTS, "NetworkManager::send(): Socket %d (m_sock[] is %d). Calling ::send()...", sock,
               m_sock[sock]);
  int sent = platform::sendBytes(m_sock[sock], buffer, static_cast<std::size_t>(bytes));
  if (sent == -1) {
    int code = platform::lastSocketError();
    log.writeLog("NetworkManager::send(): Error! Return is -1.");
    logSocketError(code);
    if (platform::isClosedSocket(code)) {
      log.writeLog(LOG_INFO, "\tsocket is closed");
      close(sock);
    }
    return -1;
  }
  if (sent < bytes) {
    log.writeLog("NetworkManager::send(): Warning! %d of %d bytes sent.", sent, bytes);
    return -1;
  }
  return 0;
}

int NetworkManager::sendDelayed() {
  const int step = GameManager::getInstance().getStepCount();
  int result = 0;
  // By system socket: a send that finds its connection closed shifts the indices.
  const std::vector<int> sockets = m_sock;
  for (int system_sock : sockets) {
    if (system_sock == -1) continue;  // being closed
    while (true) {
      auto found = std::find(m_sock.begin(), m_sock.end(), system_sock);
      if (found == m_sock.end()) break;
      auto& queue = m_delayed[found - m_sock.begin()];
      // A message not yet due holds back those behind it.
      if (queue.empty() || queue.front().m_send_step > step) break;
      DelayedMessage message = std::move(queue.front());
      queue.pop_front();
      result += sendNow(message.m_buffer.get(), message.m_size, static_cast<int>(found - m_sock.begin()));
    }
  }
  return result;
}

int NetworkManager::receive(void* buffer, int bytes, bool peek, int sock) {
  LogManager& log = LogManager::getInstance();
  if (!isIndex(sock) || m_sock[sock] == -1) {
    log.writeLog("NetworkManager::receive(): Error! Socket %d not connected. Unable to receive.", sock);
    return -1;
  }
  if (bytes < 0 || (!buffer && bytes > 0)) {
    log.writeLog("NetworkManager::receive(): Error! No buffer of %d bytes to receive into.", bytes);
    return -1;
  }
  // Departure: asking for nothing gets nothing; the system's 0 would read as a close.
  if (bytes == 0) return 0;
  log.writeLog(LOG_EVENTS,
               "NetworkManager::receive(): Socket %d (m_sock[] is %d). Calling recv(), bytes %d ...", sock,
               m_sock[sock], bytes);
  if (m_received[sock].size() < static_cast<size_t>(bytes)) {
    int arrived = platform::bytesWaiting(m_sock[sock]);
    if (arrived > 0) takeArrived(sock, arrived);
  }
  ReceivedBytes& received = m_received[sock];
  if (received.size() > 0) {
    size_t count = std::min(received.size(), static_cast<size_t>(bytes));
    std::memcpy(buffer, received.m_bytes.data() + received.m_start, count);
    if (!peek) received.m_start += count;
    return static_cast<int>(count);
  }
  // Nothing has arrived: the system's recv waits for it.
  int got = platform::receiveBytes(m_sock[sock], buffer, static_cast<std::size_t>(bytes), peek);
  if (got == 0) {
    log.writeLog(LOG_INFO, "NetworkManager::receive(): socket is closed");
    close(sock);
    return 0;
  }
  if (got == -1) {
    int code = platform::lastSocketError();
    if (!platform::isWouldBlock(code)) {
      log.writeLog("NetworkManager::receive(): Error! recv() returned:");
      logSocketError(code);
    }
    return -1;
  }
  return got;
}

int NetworkManager::isData(int sock) {
  LogManager& log = LogManager::getInstance();
  if (!isIndex(sock) || m_sock[sock] == -1) {
    log.writeLog(LOG_DETAIL, "NetworkManager::isData(): Warning! Sock %d not connected.", sock);
    return -1;
  }
  int count = platform::bytesWaiting(m_sock[sock]);
  if (count < 0) {
    int code = platform::lastSocketError();
    log.writeLog("NetworkManager::isData(): Error! ioctl()/ioctlsocket() returned:");
    logSocketError(code);
    return -1;
  }
  if (count > 0 && takeArrived(sock, count) != 0) return -1;
  return static_cast<int>(std::min<size_t>(m_received[sock].size(), INT_MAX));
}

bool NetworkManager::isPeerClosed(int sock) const {
  return isIndex(sock) && m_sock[sock] != -1 && platform::peerClosed(m_sock[sock]);
}

bool NetworkManager::isConnected(int sock) const {
  // Kept quirk: -2 passes silently as "any"; only below it is warned of.
  if (sock < -2) {
    LogManager::getInstance().writeLog("NetworkManager::isConnected(): Warning! Sock less than -1.");
    return false;
  }
  return !m_sock.empty() && sock < static_cast<int>(m_sock.size());
}

int NetworkManager::close(int sock) {
  if (sock != -1 && !isIndex(sock)) {
    LogManager::getInstance().writeLog("NetworkManager::close(): Error! Socket %d not connected.", sock);
    return -1;
  }
  const int first = sock == -1 ? 0 : sock;
  const int last = sock == -1 ? getNumConnections() - 1 : sock;
  // Departure: entries stay in place, marked, until the outermost close is
  // done, so that indices hold still for CLOSE handlers, and for this loop.
  m_closing++;
  for (int i = first; i <= last; i++) {
    if (m_sock[i] == -1) continue;  // already closed by a handler
    int system_sock = m_sock[i];
    m_sock[i] = -1;
    platform::closeSocket(system_sock);
    EventNetwork event(CLOSE);
    event.setSocketIndex(i);
    event.setBytes(0);
    onEvent(&event);
  }
  m_closing--;
  removeClosed();
  return 0;
}

int NetworkManager::setDelay(int delay, int sock) {
  LogManager& log = LogManager::getInstance();
  if (sock != -1 && !isIndex(sock)) {
    log.writeLog(LOG_DETAIL, "NetworkManager::setDelay(): Warning! Socket %d not connected.", sock);
    return -1;
  }
  if (sock == -1)
    std::fill(m_delay.begin(), m_delay.end(), delay);
  else
    m_delay[sock] = delay;
  log.writeLog(LOG_EVENTS, "NetworkManager::setDelay(): Added delay %d, socket %d", delay, sock);
  return 0;
}

int NetworkManager::getSocket(int index) const {
  if (isIndex(index)) return m_sock[index];
  const bool none = m_sock.empty();
  LogManager::getInstance().writeLog(
      "NetworkManager::getSocket(): Error! No socket at index %d (min %d, max %d).", index, none ? -1 : 0,
      none ? -1 : getNumConnections());
  return -1;
}

int NetworkManager::addSocket(int system_sock) {
  m_sock.push_back(system_sock);
  m_delay.push_back(0);
  m_delayed.emplace_back();
  m_received.emplace_back();
  return getNumConnections() - 1;
}

int NetworkManager::takeArrived(int sock, int count) {
  ReceivedBytes& received = m_received[sock];
  // What was read goes once it is most of the buffer, keeping the copying linear.
  if (received.m_start > 0 && received.m_start * 2 >= received.m_bytes.size()) {
    received.m_bytes.erase(0, received.m_start);
    received.m_start = 0;
  }
  size_t old_size = received.m_bytes.size();
  received.m_bytes.resize(old_size + static_cast<size_t>(count));
  int got =
      platform::receiveBytes(m_sock[sock], &received.m_bytes[old_size], static_cast<size_t>(count), false);
  received.m_bytes.resize(old_size + static_cast<size_t>(got > 0 ? got : 0));
  if (got < 0) {
    int code = platform::lastSocketError();
    LogManager::getInstance().writeLog("NetworkManager::receive(): Error! recv() returned:");
    logSocketError(code);
    return -1;
  }
  return 0;
}

void NetworkManager::removeClosed() {
  if (m_closing > 0) return;
  size_t kept = 0;
  for (size_t i = 0; i < m_sock.size(); i++) {
    if (m_sock[i] == -1) continue;  // its delayed messages go with it
    m_sock[kept] = m_sock[i];
    m_delay[kept] = m_delay[i];
    m_delayed[kept] = std::move(m_delayed[i]);
    m_received[kept] = std::move(m_received[i]);
    kept++;
  }
  m_sock.resize(kept);
  m_delay.resize(kept);
  m_delayed.resize(kept);
  m_received.resize(kept);
}

void cleanUp(int status) {
  LogManager& log = LogManager::getInstance();
  log.writeLog(LOG_INFO, "NetworkManager cleanUp(): Signal is %d. Shutting down.", status);
  NetworkManager::getInstance().shutDown();
  log.writeLog(LOG_INFO, "NetworkManager cleanUp(): Calling game manager shutdown.");
  GameManager::getInstance().shutDown();
  exit(status);
}

}  // namespace ot
