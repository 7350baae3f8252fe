#pragma once

#include <cstddef>

namespace ot_test {

// While alive, every non-throwing allocation (new (std::nothrow)) of at least
// this many bytes fails, as it does when memory runs out; smaller ones and
// throwing ones go on as usual. Not nestable.
class FailingAllocations {
 public:
  explicit FailingAllocations(std::size_t bytes);
  ~FailingAllocations();
  FailingAllocations(const FailingAllocations&) = delete;
  FailingAllocations& operator=(const FailingAllocations&) = delete;
};

}  // namespace ot_test
