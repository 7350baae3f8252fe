#include "engine/network/EventNetwork.h"

#include "engine/core/EventLabels.h"
#include "engine/core/LogManager.h"

namespace ot {

EventNetwork::EventNetwork(NetworkEventLabel label) {
  setType(NETWORK_EVENT);
  setLabel(label);
}

void EventNetwork::setLabel(int label) {
  if (label < UNDEFINED || label > DATA) {
    LogManager::getInstance().writeLog("EventNetwork::setLabel(): Undefined type (%d).", label);
    label = UNDEFINED;
  }
  m_label = static_cast<NetworkEventLabel>(label);
  m_message = nullptr;
}

}  // namespace ot
