#pragma once

#include "platform/linux/processes/ProgramRun.h"

namespace tavrel {

/// A script with an interpreter line, run as a process of its own. Paths are bytes: a name that is
/// no UTF-8 arrives as it is.
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
  std::function<void(std::string_view)> output{}; ///< gets standard output, piece by piece
};

/// Runs the script and waits for its end; never through a shell. Without `output`, its standard
/// output goes nowhere.
/// The paths of the files stand, each ended by a NUL, in the file that the variable
/// TAVREL_SELECTION_FILES names while the script runs; where that list cannot be written whole, the
/// script does not start. Otherwise as `runProgram` has it. A line of standard error over 4096
/// bytes is reported in pieces.
[[nodiscard]] ExecutableOutcome runExecutableScript(const ExecutableScript& script,
                                                    const ScriptProcessWatch& watch);

} // namespace tavrel
