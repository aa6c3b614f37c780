#include "contract/AccessibilityContract.h"

#include "platform/macos/MacAccessibility.h"

#include <unistd.h>

namespace tavrel {
namespace {

struct MacAccessibilityWorld {
  Accessibility& accessibility() { return adapter; }
  std::int32_t aProcess() { return ::getpid(); }
  std::int32_t noProcess() { return 999'999; } // the system's numbers end before
  Point emptyPlace() { return {-100'000, -100'000}; }

  MacAccessibility adapter;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, AccessibilityContract, MacAccessibilityWorld);

} // namespace
} // namespace tavrel
