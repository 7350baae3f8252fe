#include "engine/paths/PathManager.h"

#include <algorithm>

#include "engine/core/Clock.h"
#include "engine/core/EventPath.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/paths/PathFind.h"
#include "engine/world/Object.h"

namespace ot {

PathManager::PathManager() { setType("PathManager"); }

PathManager& PathManager::getInstance() {
  static PathManager path_manager;
  return path_manager;
}

int PathManager::startUp() {
  if (refuseSecondStart()) return -1;
  m_cycle_time = GameManager::getInstance().getFrameTime() / 10;
  Manager::startUp();
  LogManager::getInstance().writeLog(LOG_DETAIL, "PathManager::startUp(): successfully started.");
  return 0;
}

void PathManager::shutDown() {
  Manager::shutDown();
  LogManager::getInstance().writeLog(LOG_DETAIL, "PathManager::shutDown(): successfully stopped.");
}

int PathManager::addFind(PathFind* p_find) {
  if (!p_find) return -1;
  if (std::find(m_finds.begin(), m_finds.end(), p_find) != m_finds.end()) return -1;
  m_finds.push_back(p_find);
  return 0;
}

int PathManager::removeFind(PathFind* p_find) {
  if (!p_find) return -1;
  auto found = std::find(m_finds.begin(), m_finds.end(), p_find);
  if (found == m_finds.end()) return -1;
  m_finds.erase(found);
  return 0;
}

void PathManager::cycle(int time) {
  int limit = std::max(m_cycle_time, time);
  Clock clock;
  auto elapsed = [&clock]() { return static_cast<int>(clock.split() / 1000); };
  while (!m_finds.empty() && elapsed() < limit) {
    // Static by design; nothing calls cycle re-entrantly.
    static size_t index;
    index = 0;
    do {
      if (index >= m_finds.size()) break;
      PathFind* p_find = m_finds[index];
      int status = p_find->cycleOnce();
      if (status == PATH_FOUND || status == PATH_FAILED) {
        EventPath event(p_find->getPath());
        event.setStatus(status);
        // The handler removes and deletes the find, shortening the list: the
        // find behind it waits for the next round.
        if (p_find->getObject()) p_find->getObject()->eventHandler(&event);
      }
      index++;
    } while (elapsed() <= limit);
  }
  if (elapsed() > limit)
    LogManager::getInstance().writeLog(LOG_DETAIL, "PathManager::cycle(): cycle time %d exceeded.", limit);
}

}  // namespace ot
