#pragma once

#include "engine/core/Event.h"
#include "engine/core/Types.h"

namespace ot {

// What happened on a socket: accepted, connected, closed, or a whole message
// arrived. The message is the block as framed on the wire, its 4-byte length
// first; it belongs to whoever raised the event and lives only during delivery.
class EventNetwork : public Event {
 public:
  explicit EventNetwork(NetworkEventLabel label = UNDEFINED);

  // Any value but -1 to 3 is logged and stored as UNDEFINED; the message is cleared either way.
  void setLabel(int label);
  NetworkEventLabel getLabel() const { return m_label; }
  void setSocketIndex(int socket_index) { m_socket_index = socket_index; }
  int getSocketIndex() const { return m_socket_index; }
  void setBytes(int bytes) { m_bytes = bytes; }
  int getBytes() const { return m_bytes; }
  void setMessage(void* p_message) { m_message = p_message; }
  void* getMessage() const { return m_message; }

 private:
  NetworkEventLabel m_label = UNDEFINED;
  int m_socket_index = -1;  // index in the NetworkManager's list
  int m_bytes = 0;
  void* m_message = nullptr;  // not owned
};

}  // namespace ot
