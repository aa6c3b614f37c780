#pragma once

#include "platform/linux/processes/ProgramRun.h"
#include "platform/linux/system/FileDescriptor.h"

#include <optional>
#include <sys/types.h>

namespace tavrel {

/// A program that runs as our child, in a session of its own. Its standard input, output and error
/// are pipes that are never waited for, so that one thread can serve all of them.
class ChildProcess {
public:
  /// The input and the watch must outlive this.
  ChildProcess(const ProcessRequest& request, std::string_view input, const ProgramWatch& watch);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  /// Kills and reaps what still runs.
  ~ChildProcess();

  /// Waits until there is input to write, output to read or the end of the program, at most for the
  /// timeout, and does what can be done then. How the program ended, once it has; an errno when it
  /// never ran.
  [[nodiscard]] std::optional<ProgramOutcome> poll(int timeoutMsecs);
  /// Sends a signal to the program and all that it started; false when none of them is left.
  bool signalGroup(int number) const;

private:
  [[nodiscard]] int start(const ProcessRequest& request);
  void serveChild(pid_t process);
  void writeInput();
  void readErrors();
  void readOutput();
  [[nodiscard]] std::optional<ProgramOutcome> reap();

  const ProgramWatch& watch_;
  std::string_view input_;
  FileDescriptor inputEnd_;
  FileDescriptor outputEnd_;
  FileDescriptor errorEnd_;
  FileDescriptor processEnd_; ///< readable once the process ended
  pid_t process_ = 0;
  std::optional<ProgramOutcome> outcome_;
};

} // namespace tavrel
