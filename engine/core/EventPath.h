#pragma once

#include "engine/core/Event.h"
#include "engine/paths/Path.h"

namespace ot {

// Tells the owner of a path find that its search has ended, with the status
// of the search and, when found, the path.
class EventPath : public Event {
 public:
  EventPath() { setType(PATH_EVENT); }
  explicit EventPath(Path path) : m_path(std::move(path)) { setType(PATH_EVENT); }

  void setStatus(int status) { m_path_status = status; }
  int getStatus() const { return m_path_status; }
  void setPath(Path path) { m_path = std::move(path); }
  Path getPath() const { return m_path; }

 private:
  int m_path_status = 0;
  Path m_path;
};

}  // namespace ot
