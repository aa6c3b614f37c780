#include "contract/AccessibilityContract.h"

#include "platform/memory/MemoryAccessibility.h"

namespace tavrel {
namespace {

struct MemoryAccessibilityWorld {
  MemoryAccessibility adapter;
  Accessibility& accessibility() { return adapter; }
  std::int32_t aProcess() { return 100; }
  std::int32_t noProcess() { return 99999; }
  Point emptyPlace() {
    adapter.control.hasElementAtPoint = false;
    return {5, 5};
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, AccessibilityContract, MemoryAccessibilityWorld);

} // namespace
} // namespace tavrel
