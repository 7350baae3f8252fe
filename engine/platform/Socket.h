#pragma once

// IPv4 TCP sockets, as thin as the system's calls, so that NetworkManager and
// everything above it never include a socket header. A socket is the system's
// descriptor, -1 for none. Every call that fails records a code that
// lastSocketError() returns until the next failure: an errno value, or a
// negative code of the name resolver.

#include <cstddef>
#include <string>

namespace ot {
namespace platform {

// Bring the socket library up and down; 0 on success. Nothing needs doing on
// POSIX: sends ask the system not to raise SIGPIPE on a closed connection.
int socketStartUp();
int socketCleanUp();

// The code of the last failure of a call below.
int lastSocketError();
// The system's text for a code of lastSocketError().
std::string socketErrorText(int code);
// Whether a code only says that a non-blocking call found nothing to do.
bool isWouldBlock(int code);
// Whether a code of a failed send says that the connection is gone.
bool isClosedSocket(int code);

// A new IPv4 stream socket, or -1.
int openStreamSocket();
// Binds to this port on every local address, allowing a port whose old
// connections are still winding down; 0 or -1.
int bindAnyAddress(int sock, unsigned short port);
int listenSocket(int sock, int backlog);
int setNonBlocking(int sock);
// The port a socket is bound to, or -1.
int localPort(int sock);
// A connection from a listener's queue, as a blocking socket; -1 when none is
// waiting (isWouldBlock(lastSocketError())) or on failure.
int acceptSocket(int listener);

// The first IPv4 stream address of a host and port, as the resolver gave it.
struct SocketAddress {
  int family = 0;
  int type = 0;
  int protocol = 0;
  unsigned char bytes[128] = {};  // the system's address structure
  unsigned int length = 0;
};
// 0, or -1 when the name or port can't be resolved.
int resolveAddress(const std::string& host, const std::string& port, SocketAddress* p_address);
// A socket of the address's family, type and protocol, or -1.
int openSocketFor(const SocketAddress& address);
// Connects, blocking until the peer answers or refuses; 0 or -1.
int connectSocket(int sock, const SocketAddress& address);

// 0, or -1 when it wasn't an open socket.
int closeSocket(int sock);
// One call of the system's send: the bytes taken, or -1.
int sendBytes(int sock, const void* buffer, std::size_t bytes);
// One call of the system's recv, leaving the bytes queued when peek: the bytes
// read, 0 when the peer has closed, -1 on failure.
int receiveBytes(int sock, void* buffer, std::size_t bytes, bool peek);
// How many bytes can be read at once without waiting, or -1.
int bytesWaiting(int sock);
// Whether the peer has closed its end (or the connection broke): what it sent
// before may still be waiting. Never waits.
bool peerClosed(int sock);
// Waits at most timeout_ms for something to read (or for the peer's close);
// whether it came.
bool waitReadable(int sock, int timeout_ms);

}  // namespace platform
}  // namespace ot
