#include "tests/support/SpyObject.h"

#include <algorithm>

#include "engine/core/EventStep.h"

namespace ot_test {

SpyObject::SpyObject(std::string type) { setType(std::move(type)); }

int SpyObject::eventHandler(const ot::Event* p_e) {
  received.push_back(p_e->getType());
  if (p_e->getType() == ot::STEP_EVENT)
    steps.push_back(static_cast<const ot::EventStep*>(p_e)->getStepCount());
  // The base still does its part (taking a found path, dropping the search).
  Object::eventHandler(p_e);
  if (on_event) on_event(*this, p_e);
  return result;
}

int SpyObject::count(const std::string& label) const {
  return static_cast<int>(std::count(received.begin(), received.end(), label));
}

}  // namespace ot_test
