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

constexpr std::chrono::milliseconds stopPollInterval{100};
constexpr std::chrono::seconds terminationTimeout{2};
constexpr int groupPollMsecs = 10;

int msecsUntil(RunClock::time_point moment) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(moment - RunClock::now());
  return static_cast<int>(std::max<std::int64_t>(0, left.count()));
}

/// Ends the program and all that it started: first by SIGTERM, after the timeout by SIGKILL.
void stop(ChildProcess& process) {
  process.signalGroup(SIGTERM);
  const auto deadline = RunClock::now() + terminationTimeout;
  while (RunClock::now() < deadline && process.signalGroup(0))
    if (process.poll(groupPollMsecs))
      ::poll(nullptr, 0, groupPollMsecs); // it ended; what it started may not have
  process.signalGroup(SIGKILL);
  while (!process.poll(groupPollMsecs)) {
  }
}

ProgramOutcome waitFor(ChildProcess& process, const std::function<bool()>& shouldStop) {
  auto nextCheck = RunClock::now() + stopPollInterval;
  for (;;) {
    if (const auto outcome = process.poll(msecsUntil(nextCheck)))
      return *outcome;
    if (RunClock::now() < nextCheck)
      continue;
    nextCheck = RunClock::now() + stopPollInterval;
    if (shouldStop && shouldStop()) {
      stop(process);
      return {ProgramOutcome::Ending::stopped, 0};
    }
  }
}

} // namespace

ProgramOutcome runProgram(const ProcessRequest& request, std::string_view input,
                          const ProgramWatch& watch) {
  ChildProcess process(request, input, watch);
  const ProgramOutcome outcome = waitFor(process, watch.shouldStop);
  (void)process.poll(0); // what it printed last
  return outcome;
}

} // namespace tavrel
