#pragma once

#include <string>

#include "engine/core/ObjectList.h"
#include "engine/core/Types.h"

namespace ot {

class Event;
class Object;

// The base of the engine's singleton managers: a type name, a started flag and
// the table of which objects want which events. Delivery walks a copy of the
// interested objects, so a handler may register, unregister or delete freely.
// The table points at objects it doesn't own; ~Object takes itself out.
class Manager {
 public:
  Manager() = default;
  Manager(const Manager&) = delete;
  Manager& operator=(const Manager&) = delete;

  // Whether this manager may deliver events of this label.
  virtual bool isValid(const std::string& event_type) const;
  virtual ~Manager();
  // Sets the started flag; 0.
  virtual int startUp();
  // Clears the started flag.
  virtual void shutDown();

  std::string getType() const { return m_type; }
  void setType(std::string type) { m_type = std::move(type); }
  bool isStarted() const { return m_is_started; }

  // Delivers to every active interested object; how many handled it.
  int onEvent(const Event* p_event) const;
  // 0 on success or when already registered; -1 if refused or the table is full.
  int registerInterest(Object* p_o, const std::string& event_type);
  // -1 if the object wasn't registered for the label.
  int unregisterInterest(Object* p_o, const std::string& event_type);

 protected:
  // For a manager's own startUp: true, after the warning every manager writes,
  // when it is running already and must refuse.
  bool refuseSecondStart() const;
  // For calls that need a running manager: true, after saying so in the log,
  // when it isn't running.
  bool refuseUntilStarted() const;

 private:
  std::string m_type = "Manager";
  int m_event_count = 0;                  // rows in use
  std::string m_event[MAX_OBJ_EVENTS];    // label of each row
  ObjectList m_obj_list[MAX_OBJ_EVENTS];  // objects interested in that label
  bool m_is_started = false;
};

}  // namespace ot
