#pragma once

#include <chrono>
#include <functional>
#include <poll.h>

namespace tavrel {

/// Looks again and again until a condition holds; false when it does not within a deadline that no
/// healthy machine needs. `step` runs between two looks and may serve an event loop.
inline bool waitFor(const std::function<bool()>& condition,
                    const std::function<void()>& step = {}) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline)
      return false;
    if (step)
      step();
    ::poll(nullptr, 0, 2);
  }
  return true;
}

} // namespace tavrel
