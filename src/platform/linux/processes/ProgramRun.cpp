#include "platform/linux/processes/ProgramRun.h"

#include "platform/linux/processes/ChildProcess.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <poll.h>

namespace tavrel {
namespace {

using RunClock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds betweenStopLooks{100};
constexpr std::chrono::seconds timeToEnd{2};
constexpr int msecsBetweenGroupLooks = 10;

int msecsUntil(RunClock::time_point moment) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(moment - RunClock::now());
  return static_cast<int>(std::max<std::int64_t>(0, left.count()));
}

/// Ends the program and all that it started: what does not go when it is asked is killed.
void stop(ChildProcess& process) {
  process.signalAll(SIGTERM);
  const auto deadline = RunClock::now() + timeToEnd;
  while (RunClock::now() < deadline && process.signalAll(0))
    if (process.serve(msecsBetweenGroupLooks))
      ::poll(nullptr, 0, msecsBetweenGroupLooks); // it ended; what it started may not have
  process.signalAll(SIGKILL);
  while (!process.serve(msecsBetweenGroupLooks)) {
  }
}

ProgramOutcome waitFor(ChildProcess& process, const std::function<bool()>& shouldStop) {
  auto look = RunClock::now() + betweenStopLooks;
  for (;;) {
    if (const auto outcome = process.serve(msecsUntil(look)))
      return *outcome;
    if (RunClock::now() < look)
      continue;
    look = RunClock::now() + betweenStopLooks;
    if (shouldStop && shouldStop()) {
      stop(process);
      return {ProgramOutcome::Ending::stopped, 0};
    }
  }
}

} // namespace

ProgramOutcome runProgram(const ProcessRequest& request, std::string_view input,
                          const ProgramWatch& watch) {
  ChildProcess process(request, input, {watch.output, watch.errors});
  const ProgramOutcome outcome = waitFor(process, watch.shouldStop);
  (void)process.serve(0); // a last look at what it said
  return outcome;
}

} // namespace tavrel
