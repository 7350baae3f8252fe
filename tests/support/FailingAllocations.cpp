#include "tests/support/FailingAllocations.h"

#include <new>

namespace {

// 0: nothing fails.
std::size_t g_fail_from = 0;

bool failing(std::size_t bytes) { return g_fail_from != 0 && bytes >= g_fail_from; }

}  // namespace

namespace ot_test {

FailingAllocations::FailingAllocations(std::size_t bytes) { g_fail_from = bytes; }

FailingAllocations::~FailingAllocations() { g_fail_from = 0; }

}  // namespace ot_test

// The test programs' own non-throwing allocation functions: the usual ones,
// unless a failure is asked for. They take their memory from the throwing
// ones, so that the usual deletes free it.
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  if (failing(bytes)) return nullptr;
  try {
    return ::operator new(bytes);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept {
  if (failing(bytes)) return nullptr;
  try {
    return ::operator new[](bytes);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
