#include "engine/platform/Socket.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace ot {
namespace platform {

namespace {

int g_last_error = 0;

// Keeps errno before anything else can overwrite it; returns -1 for the caller.
int failed() {
  g_last_error = errno;
  return -1;
}

// Departure: a game's messages are small and due now: each goes out when sent, instead
// of waiting for the previous one's acknowledgement to be joined with more.
void sendAtOnce(int sock) {
  int on = 1;
  setsockopt(sock, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
}

}  // namespace

int socketStartUp() { return 0; }

int socketCleanUp() { return 0; }

int lastSocketError() { return g_last_error; }

std::string socketErrorText(int code) { return code < 0 ? gai_strerror(code) : std::strerror(code); }

bool isWouldBlock(int code) { return code == EAGAIN || code == EWOULDBLOCK; }

bool isClosedSocket(int code) { return code == ENOTCONN || code == EBADF || code == EPIPE; }

int openStreamSocket() {
  int sock = ::socket(AF_INET, SOCK_STREAM, 0);
  return sock < 0 ? failed() : sock;
}

int bindAnyAddress(int sock, unsigned short port) {
  // Departure: lets a server start again at once on a port whose last connections are
  // still in TIME_WAIT, as binding does on the system the engine began on.
  int on = 1;
  setsockopt(sock, SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on));
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_ANY);
  address.sin_port = htons(port);
  if (::bind(sock, reinterpret_cast<sockaddr*>(&address), sizeof(address)) < 0) return failed();
  return 0;
}

int listenSocket(int sock, int backlog) { return ::listen(sock, backlog) < 0 ? failed() : 0; }

int setNonBlocking(int sock) {
  int flags = fcntl(sock, F_GETFL, 0);
  if (flags < 0 || fcntl(sock, F_SETFL, flags | O_NONBLOCK) < 0) return failed();
  return 0;
}

int localPort(int sock) {
  sockaddr_in address{};
  socklen_t length = sizeof(address);
  if (getsockname(sock, reinterpret_cast<sockaddr*>(&address), &length) < 0) return failed();
  return ntohs(address.sin_port);
}

int acceptSocket(int listener) {
  sockaddr_in address{};
  socklen_t length = sizeof(address);
  int sock = ::accept(listener, reinterpret_cast<sockaddr*>(&address), &length);
  if (sock < 0) return failed();
  // Some systems pass the listener's non-blocking flag on; connections block.
  int flags = fcntl(sock, F_GETFL, 0);
  if (flags >= 0 && (flags & O_NONBLOCK)) fcntl(sock, F_SETFL, flags & ~O_NONBLOCK);
  sendAtOnce(sock);
  return sock;
}

int resolveAddress(const std::string& host, const std::string& port, SocketAddress* p_address) {
  addrinfo hints{};
  hints.ai_family = AF_INET;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* p_result = nullptr;
  int code = getaddrinfo(host.c_str(), port.c_str(), &hints, &p_result);
  if (code != 0) {
    g_last_error = code == EAI_SYSTEM ? errno : code;
    return -1;
  }
  if (p_result->ai_addrlen > sizeof(p_address->bytes)) {
    freeaddrinfo(p_result);
    g_last_error = EAI_FAMILY;
    return -1;
  }
  p_address->family = p_result->ai_family;
  p_address->type = p_result->ai_socktype;
  p_address->protocol = p_result->ai_protocol;
  p_address->length = p_result->ai_addrlen;
  std::memcpy(p_address->bytes, p_result->ai_addr, p_result->ai_addrlen);
  // Departure: the resolver's list is freed, not leaked.
  freeaddrinfo(p_result);
  return 0;
}

int openSocketFor(const SocketAddress& address) {
  int sock = ::socket(address.family, address.type, address.protocol);
  return sock < 0 ? failed() : sock;
}

int connectSocket(int sock, const SocketAddress& address) {
  int result = ::connect(sock, reinterpret_cast<const sockaddr*>(address.bytes), address.length);
  if (result < 0) return failed();
  sendAtOnce(sock);
  return 0;
}

int closeSocket(int sock) { return ::close(sock) < 0 ? failed() : 0; }

int sendBytes(int sock, const void* buffer, std::size_t bytes) {
  ssize_t sent = ::send(sock, buffer, bytes, MSG_NOSIGNAL);
  return sent < 0 ? failed() : static_cast<int>(sent);
}

int receiveBytes(int sock, void* buffer, std::size_t bytes, bool peek) {
  ssize_t got = ::recv(sock, buffer, bytes, peek ? MSG_PEEK : 0);
  return got < 0 ? failed() : static_cast<int>(got);
}

int bytesWaiting(int sock) {
  int count = 0;
  if (ioctl(sock, FIONREAD, &count) < 0) return failed();
  return count;
}

bool peerClosed(int sock) {
  pollfd entry{};
  entry.fd = sock;
#ifdef POLLRDHUP
  entry.events = POLLIN | POLLRDHUP;
  if (poll(&entry, 1, 0) != 1) return false;
  return (entry.revents & (POLLRDHUP | POLLHUP | POLLERR | POLLNVAL)) != 0;
#else
  // Without a hang-up flag for a half close, the close shows only once
  // nothing is left to read.
  entry.events = POLLIN;
  if (poll(&entry, 1, 0) != 1) return false;
  if (entry.revents & (POLLHUP | POLLERR | POLLNVAL)) return true;
  char byte;
  return ::recv(sock, &byte, 1, MSG_PEEK | MSG_DONTWAIT) == 0;
#endif
}

bool waitReadable(int sock, int timeout_ms) {
  pollfd entry{};
  entry.fd = sock;
  entry.events = POLLIN;
  int result;
  do {
    result = poll(&entry, 1, timeout_ms);
  } while (result < 0 && errno == EINTR);
  return result == 1;
}

}  // namespace platform
}  // namespace ot
