#pragma once

#include <vector>

#include "engine/core/Manager.h"

namespace ot {

class PathFind;

// Holds the running path finds and spends the spare time of each frame on
// them, one node per find per round, so that a search never stalls the game.
// The finds belong to their objects.
class PathManager : public Manager {
 public:
  static PathManager& getInstance();

  ~PathManager() override = default;
  int startUp() override;
  void shutDown() override;

  // -1 for null or a find already held.
  int addFind(PathFind* p_find);
  // -1 for null or a find not held.
  int removeFind(PathFind* p_find);
  int getNumFinds() const { return static_cast<int>(m_finds.size()); }
  // The least time a cycle may take, in milliseconds.
  void setCycleTime(int cycle_time) { m_cycle_time = cycle_time; }
  int getCycleTime() const { return m_cycle_time; }

  // Advances the finds for time milliseconds (at least the cycle time),
  // telling each object whose search ends.
  void cycle(int time);

 private:
  PathManager();

  std::vector<PathFind*> m_finds;  // not owned
  int m_cycle_time = 0;
};

}  // namespace ot
