#pragma once

#include "platform/linux/processes/ProcessStart.h"

#include <functional>
#include <string_view>

namespace tavrel {

/// How a program ended.
struct ProgramOutcome {
  enum class Ending {
    notStarted, ///< number: the system's reason
    exited,     ///< number: the exit status
    signalled,  ///< number: the signal
    stopped,    ///< because it was to stop; number: 0
  };
  Ending ending = Ending::notStarted;
  int number = 0;

  [[nodiscard]] bool isSuccess() const { return ending == Ending::exited && number == 0; }
};

/// Called while a program is waited for; output comes in chunks of any size.
struct ProgramWatch {
  std::function<bool()> shouldStop;                  ///< asked ten times a second
  std::function<void(std::string_view)> errors;      ///< gets standard error
  std::function<void(std::string_view)> output = {}; ///< gets standard output; else /dev/null does
};

/// Starts a program as a child in a session of its own, hands it its standard input and waits for
/// its end. Without a folder it starts in ours. One that is to stop ends with all the processes it
/// started: by SIGTERM, after two seconds by SIGKILL. What it started and left behind is not waited
/// for, even when that holds its output open.
[[nodiscard]] ProgramOutcome runProgram(const ProcessRequest& request, std::string_view input,
                                        const ProgramWatch& watch);

} // namespace tavrel
