#include "platform/linux/processes/StartTimes.h"

#include <atomic>
#include <ctime>
#include <unistd.h>

namespace tavrel {

namespace {
std::atomic<std::uint64_t> lastStart = 0;
}

std::uint64_t ticksSinceBoot() {
  constexpr std::uint64_t nanoseconds = 1'000'000'000; // in a second
  timespec time{};
  ::clock_gettime(CLOCK_BOOTTIME, &time);
  const auto perSecond = static_cast<std::uint64_t>(::sysconf(_SC_CLK_TCK));
  return static_cast<std::uint64_t>(time.tv_sec) * perSecond +
         static_cast<std::uint64_t>(time.tv_nsec) * perSecond / nanoseconds;
}

void noteProgramStart() {
  lastStart = ticksSinceBoot();
}

std::uint64_t lastProgramStart() {
  return lastStart;
}

} // namespace tavrel
