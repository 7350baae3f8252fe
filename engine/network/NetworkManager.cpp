#include "engine/network/NetworkManager.h"

#include "engine/core/EventLabels.h"
#include "engine/core/LogManager.h"

namespace ot {

NetworkManager::NetworkManager() { setType("NetworkManager"); }

NetworkManager& NetworkManager::getInstance() {
  static NetworkManager network_manager;
  return network_manager;
}

bool NetworkManager::isValid(std::string event_type) const {
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
  if (isStarted()) {
    LogManager::getInstance().writeLog("%s::startup(): Warning! %s already started.", getType().c_str(),
                                       getType().c_str());
    return -1;
  }
  Manager::startUp();
  LogManager::getInstance().writeLog(5, "NetworkManager::startUp(): successfully started.");
  return 0;
}

void NetworkManager::shutDown() {
  Manager::shutDown();
  LogManager::getInstance().writeLog(5, "NetworkManager::shutDown(): successfully stopped.");
}

int NetworkManager::accept() {
  if (m_server_sock == -1) {
    LogManager::getInstance().writeLog("NetworkManager::accept(): Error! Not setup as server.");
    return -2;
  }
  return -1;
}

bool NetworkManager::isConnected(int sock) const {
  if (sock < -2) {
    LogManager::getInstance().writeLog("NetworkManager::isConnected(): Warning! Sock less than -1.");
    return false;
  }
  return !m_sock.empty() && sock < static_cast<int>(m_sock.size());
}

int NetworkManager::sendDelayed() { return 0; }

}  // namespace ot
