#pragma once

#include <cstdlib>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "engine/core/EventLabels.h"
#include "engine/core/Manager.h"

namespace ot {

// A message held back by a socket's delay until the game step it may go at.
// It owns its copy of the caller's bytes.
struct DelayedMessage {
  struct FreeBuffer {
    void operator()(void* p) const { std::free(p); }
  };
  int m_send_step = 0;
  std::unique_ptr<void, FreeBuffer> m_buffer;  // from malloc
  int m_size = 0;
};

// Bytes taken from the system for a socket and not yet read by the game.
struct ReceivedBytes {
  std::string m_bytes;
  size_t m_start = 0;  // where the unread part begins
  size_t size() const { return m_bytes.size() - m_start; }
};

// The TCP side of the engine: an optional listening socket and the connected
// sockets, each called by its index in the manager's list (indices of later
// sockets shift down when one closes).
// Departure: what has arrived is moved out of the
// system into the manager as soon as isData or receive looks, so that a
// message still arriving never leaves the system's buffer full and stalled. Raises EventNetwork ACCEPT,
// CONNECT and CLOSE; genDataEvents raises DATA. Started only when networking is on.
//
//   NetworkManager& nm = NetworkManager::getInstance();
//   nm.setServer(true);            // the frame then accepts once a step
//   int sock = nm.connect("127.0.0.1", "9876");  // on the other side
//   nm.send(block, size, sock);    // block starts with its 4-byte length
class NetworkManager : public Manager {
 public:
  static NetworkManager& getInstance();

  // The network labels only; others are logged and refused.
  bool isValid(const std::string& event_type) const override;
  ~NetworkManager() override = default;
  // -1 if already started, 1 if the socket library won't start.
  int startUp() override;
  // Closes every socket, the listening one too.
  void shutDown() override;

  // Starts (true) or stops (false) listening on a port; "0" lets the system
  // choose one (see getServerPort). -1 with networking off or on failure.
  int setServer(bool server, const std::string& port = DEFAULT_PORT);
  bool isServer() const { return m_server_sock != -1; }
  // The port the listening socket is bound to, or -1 when not a server.
  int getServerPort() const;
  // A new socket's index, -1 if none came or at the limit, -2 when not a server or on error.
  int accept();
  // Connects, blocking: the new socket's index, or -1.
  int connect(const std::string& host, const std::string& port = DEFAULT_PORT);

  // Sends now, or queues a copy when the socket has a delay; sock -1 means
  // every socket. 0, or below 0 for each send that failed.
  int send(const void* buffer, int bytes, int sock = -1);
  // One send on one socket: 0 when all went, -1 otherwise (what didn't go is
  // lost). A connection found closed is closed here.
  int sendNow(const void* buffer, int bytes, int sock);
  // Sends what the delay queues hold that is due by now; the sum of the sends.
  int sendDelayed();
  // Bytes read (left queued when peek), 0 when the peer closed (the socket
  // is then closed here), -1 on failure. Blocks until something comes.
  int receive(void* buffer, int bytes, bool peek, int sock);
  // Bytes waiting to be read, -1 on failure.
  int isData(int sock);
  // Whether the peer has closed its end; what it sent before may still wait.
  bool isPeerClosed(int sock) const;
  // Whether there is that socket; -1 or -2 ask for any.
  bool isConnected(int sock = -1) const;
  // Closes one socket, or all with -1, raising CLOSE for each. Messages still
  // delayed for them are dropped. -1 when there is no such socket.
  int close(int sock = -1);
  // Holds every later send back by this many game steps; -1 means all sockets.
  int setDelay(int delay, int sock = -1);

  // The system's socket at an index, or -1.
  int getSocket(int index) const;
  int getNumConnections() const { return static_cast<int>(m_sock.size()); }
  // Stops accepting at this many connections; those open stay.
  void setMaxConnections(int max_connections) { m_max_connections = max_connections; }
  int getMaxConnections() const { return m_max_connections; }

 private:
  NetworkManager();

  // Whether sock is the index of a socket in the list.
  bool isIndex(int sock) const { return sock >= 0 && sock < static_cast<int>(m_sock.size()); }
  int addSocket(int system_sock);
  // Moves count bytes that the system holds for a socket into m_received; -1 on failure.
  int takeArrived(int sock, int count);
  // Drops the entries that close marked, once no close is under way.
  void removeClosed();

  int m_server_sock = -1;  // the listening socket
  int m_max_connections = 3;
  std::vector<int> m_sock;                            // connected sockets; -1 while being closed
  std::vector<int> m_delay;                           // per socket, in game steps
  std::vector<std::deque<DelayedMessage>> m_delayed;  // per socket, oldest first
  std::vector<ReceivedBytes> m_received;              // per socket
  int m_closing = 0;                                  // nesting of close: a CLOSE handler may close too
};

// Stops the network and the game and ends the process with status; shaped to
// be handed to the system's signal facility, where a game wants that.
void cleanUp(int status);

}  // namespace ot
