#pragma once

#include "platform/linux/processes/ProgramRun.h"

namespace tavrel {

/// A program that is handed what is selected: a script with an interpreter line, or a service.
/// Paths are bytes: a name that is no UTF-8 arrives as it is.
struct SelectionProgram {
  std::string path;
  std::vector<std::string> files; ///< what is selected: its arguments
  std::string text;               ///< what is selected: its standard input
  std::string hostApplication;    ///< the variable TAVREL_HOST_APP
};

/// Called while the program runs.
struct SelectionProgramWatch {
  std::function<bool()> shouldStop;                   ///< asked ten times a second
  std::function<void(const std::string&)> reportLine; ///< gets each line of standard error
  std::function<void(std::string_view)> output{};     ///< gets standard output, in chunks
};

/// Runs the program and waits for its end; never through a shell. Without `output`, its standard
/// output goes to /dev/null.
///
/// The paths of the files stand, each ended by a NUL, in the file that the variable
/// TAVREL_SELECTION_FILES names while it runs; where that list cannot be written whole, the
/// program does not start. Otherwise as `runProgram` has it. A line of standard error over 4096
/// bytes is reported as several lines.
[[nodiscard]] ProgramOutcome runSelectionProgram(const SelectionProgram& program,
                                                 const SelectionProgramWatch& watch);

} // namespace tavrel
