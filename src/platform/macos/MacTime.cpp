#include "platform/macos/MacTime.h"

#include <CoreFoundation/CoreFoundation.h>

#include <chrono>

namespace tavrel {

double secondsNow() {
  using Steady = std::chrono::steady_clock;
  static const double startSeconds = CFAbsoluteTimeGetCurrent();
  static const Steady::time_point start = Steady::now();
  return startSeconds + std::chrono::duration<double>(Steady::now() - start).count();
}

} // namespace tavrel
