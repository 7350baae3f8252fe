#include "engine/core/Manager.h"

#include "engine/core/Event.h"
#include "engine/core/LogManager.h"
#include "engine/core/ObjectListIterator.h"
#include "engine/world/Object.h"

namespace ot {

bool Manager::isValid(const std::string& /*event_type*/) const { return false; }

Manager::~Manager() { m_is_started = false; }

int Manager::startUp() {
  if (m_is_started) {
    LogManager::getInstance().writeLog(LOG_INFO, "Manager::startUp(): Warning! %s already started.",
                                       m_type.c_str());
  }
  m_is_started = true;
  return 0;
}

bool Manager::refuseSecondStart() const {
  if (!m_is_started) return false;
  LogManager::getInstance().writeLog("%s::startup(): Warning! %s already started.", m_type.c_str(),
                                     m_type.c_str());
  return true;
}

bool Manager::refuseUntilStarted() const {
  if (m_is_started) return false;
  LogManager::getInstance().writeLog("%s not started!", m_type.c_str());
  return true;
}

void Manager::shutDown() {
  if (!m_is_started) {
    LogManager::getInstance().writeLog(LOG_INFO, "Manager::shutDown(): Warning! %s not started.",
                                       m_type.c_str());
  }
  m_is_started = false;
}

int Manager::onEvent(const Event* p_event) const {
  LogManager& log = LogManager::getInstance();
  std::string type = p_event->getType();
  if (type == UNDEFINED_EVENT) {
    log.writeLog(LOG_INFO, "Manager(%s)::onEvent(): Warning! Event type %s is undefined.", m_type.c_str(),
                 type.c_str());
    return 0;
  }
  if (!isValid(type)) {
    log.writeLog(LOG_INFO, "Manager(%s)::onEvent(): Error! Event type %s not valid.", m_type.c_str(),
                 type.c_str());
    return 0;
  }
  int count = 0;
  for (int i = 0; i < m_event_count; i++) {
    if (m_event[i] != type) continue;
    // A copy, so that handlers may change the table while we walk it.
    ObjectList ol = m_obj_list[i];
    for (ObjectListIterator oli(&ol); !oli.isDone(); oli.next()) {
      Object* p_o = oli.currentObject();
      if (p_o->isActive() && p_o->eventHandler(p_event)) count++;
    }
  }
  return count;
}

int Manager::registerInterest(Object* p_o, const std::string& event_type) {
  LogManager& log = LogManager::getInstance();
  if (!isValid(event_type)) {
    log.writeLog("Manager(%s)::registerInterest(): Event '%s' not valid for this Manager", m_type.c_str(),
                 event_type.c_str());
    return -1;
  }
  for (int i = 0; i < m_event_count; i++) {
    if (m_event[i] != event_type) continue;
    for (ObjectListIterator li(&m_obj_list[i]); !li.isDone(); li.next()) {
      if (li.currentObject() == p_o) {
        log.writeLog(LOG_INFO,
                     "Manager::registerInterest(): Warning! Not adding id %d (%s) twice for event %s.",
                     p_o->getId(), p_o->getType().c_str(), event_type.c_str());
        return 0;
      }
    }
    return m_obj_list[i].insert(p_o);
  }
  if (m_event_count == MAX_OBJ_EVENTS) return -1;
  m_event[m_event_count] = event_type;
  m_obj_list[m_event_count].clear();
  if (m_obj_list[m_event_count].insert(p_o) != 0) return -1;
  m_event_count++;
  return 0;
}

int Manager::unregisterInterest(Object* p_o, const std::string& event_type) {
  int row = 0;
  while (row < m_event_count && m_event[row] != event_type) row++;
  if (row == m_event_count) return -1;
  if (m_obj_list[row].remove(p_o) != 0) return -1;
  if (!m_obj_list[row].isEmpty()) return 0;
  // Close the gap, keeping the later rows in order.
  for (int i = row; i < m_event_count - 1; i++) {
    m_event[i] = m_event[i + 1];
    m_obj_list[i] = m_obj_list[i + 1];
  }
  m_event_count--;
  return 0;
}

}  // namespace ot
