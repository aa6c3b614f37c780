#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tavrel {

/// A script with an interpreter line, run as a process of its own.
struct ExecutableScript {
  std::string path;
  std::vector<std::string> files; ///< what is selected: its arguments
  std::string text;               ///< what is selected: its standard input
  std::string hostApplication;    ///< the variable TAVREL_HOST_APP
};

/// What a script may ask and tell while it runs.
struct ScriptProcessWatch {
  std::function<bool()> shouldStop;               ///< asked ten times a second
  std::function<void(const std::string&)> report; ///< gets each line of standard error
};

/// Runs the script and waits for its end. The paths of the files stand, each ended by a NUL, in the
/// file that the variable TAVREL_SELECTION_FILES names while the script runs. A script that is to
/// stop ends with all the processes it started. The exit status; -1 when it could not be started
/// or a signal ended it.
[[nodiscard]] int runExecutableScript(const ExecutableScript& script,
                                      const ScriptProcessWatch& watch);

} // namespace tavrel
