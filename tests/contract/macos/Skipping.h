#pragma once

#include <ApplicationServices/ApplicationServices.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace tavrel {

inline constexpr const char* needsHands =
    "keys, clicks and the pointer need the permission to control this machine (Accessibility)";

[[nodiscard]] inline bool mayPostEvents() {
  return AXIsProcessTrusted();
}

/// For the constructor of a World: the test that is about to run does not.
inline void skipTest(const char* reason) {
  GTEST_SKIP() << reason;
}

/// The same when it is one of these.
inline void skipTests(std::initializer_list<std::string_view> names, const char* reason) {
  const std::string_view name = ::testing::UnitTest::GetInstance()->current_test_info()->name();
  if (std::find(names.begin(), names.end(), name) != names.end())
    skipTest(reason);
}

} // namespace tavrel
