#include "engine/network/DataEvents.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

#include "engine/core/LogManager.h"
#include "engine/network/EventNetwork.h"
#include "engine/network/NetworkManager.h"

namespace ot {

namespace {

constexpr int HEADER_BYTES = 4;

struct FreeBuffer {
  void operator()(void* p) const { std::free(p); }
};

// Less than a whole message waits. 0 either way: nothing to deliver.
// Departure: if the peer has closed, the rest will never come: the socket is
// closed, so that the game hears CLOSE instead of waiting on it for ever.
int closeIfPeerGone(NetworkManager& network, int sock, int have) {
  if (!network.isPeerClosed(sock)) return 0;
  if (have > 0)
    LogManager::getInstance().writeLog(
        "ot::genDataEvents(): Warning! Socket %d closed by its peer in the middle of a message (%d bytes "
        "dropped).",
        sock, have);
  else
    LogManager::getInstance().writeLog(LOG_INFO, "ot::genDataEvents(): Socket %d closed by its peer.", sock);
  network.close(sock);
  return 0;
}

}  // namespace

int genDataEvents(int sock) {
  LogManager& log = LogManager::getInstance();
  NetworkManager& network = NetworkManager::getInstance();
  const bool connected = network.isConnected(sock);
  const int waiting = network.isData(sock);
  log.writeLog(LOG_LINES, "ot::genDataEvents(): socket %d, connected %s, bytes %d", sock,
               connected ? "true" : "false", waiting);
  if (!connected) return 0;
  if (waiting < HEADER_BYTES) return closeIfPeerGone(network, sock, waiting);

  std::int32_t size = 0;
  if (network.receive(&size, HEADER_BYTES, true, sock) != HEADER_BYTES) {
    log.writeLog("ot::genDataEvents(): Error!  Reading message.");
    return -1;
  }
  // Departure: no length below the header's own can be a message, and without
  // one the stream can't be followed: the connection is given up.
  if (size < HEADER_BYTES) {
    log.writeLog("ot::genDataEvents(): Error! Message size %d is less than its header; closing socket %d.",
                 size, sock);
    network.close(sock);
    return -1;
  }
  // Bytes only ever add up, so a first count that covers the message stands.
  const int have = waiting >= size ? waiting : network.isData(sock);
  log.writeLog(LOG_LINES, "ot::genDataEvents(): have %d of %d bytes.", have, size);
  // Kept quirk: a length larger than will ever arrive waits, consuming
  // nothing, for as long as the peer stays: it may still send the rest.
  if (have < size) return closeIfPeerGone(network, sock, have);

  log.writeLog(LOG_LINES, "ot::genDataEvents(): have full message (%d bytes).", size);
  std::unique_ptr<void, FreeBuffer> p_buffer(std::calloc(1, static_cast<std::size_t>(size)));
  if (!p_buffer) {
    log.writeLog("ot::genDataEvents(): Error! Cannot allocate %d bytes for message buffer.", size);
    return -1;
  }
  if (network.receive(p_buffer.get(), size, false, sock) != size) {
    log.writeLog("ot::genDataEvents(): Error!  Reading message.");
    return -1;
  }
  EventNetwork event(DATA);
  event.setBytes(size);
  event.setSocketIndex(sock);
  event.setMessage(p_buffer.get());
  int reached = network.onEvent(&event);
  log.writeLog(LOG_LINES, "ot::genDataEvents(): sent to %d objects.", reached);
  return 1;
}

}  // namespace ot
