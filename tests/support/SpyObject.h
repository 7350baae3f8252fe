#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/core/Event.h"
#include "engine/world/Object.h"

namespace ot_test {

// An object that records the label of every event it gets, and may run a
// test's action on each; handles everything (returns 1) unless told not to.
class SpyObject : public ot::Object {
 public:
  using Action = std::function<void(SpyObject&, const ot::Event*)>;

  explicit SpyObject(std::string type = "Spy");

  int eventHandler(const ot::Event* p_e) override;

  // How many events of this label arrived.
  int count(const std::string& label) const;

  std::vector<std::string> received;  // labels, in order of arrival
  std::vector<int> steps;             // step counts of the step events
  Action on_event;                    // runs after recording, if set
  int result = 1;                     // what eventHandler returns
};

}  // namespace ot_test
