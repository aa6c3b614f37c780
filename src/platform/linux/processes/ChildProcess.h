#pragma once

#include "platform/linux/processes/ProgramRun.h"
#include "platform/linux/system/FileDescriptor.h"

#include <optional>
#include <sys/types.h>

namespace tavrel {

/// Who gets what a program says. Without `output` that goes nowhere.
struct ProgramListeners {
  std::function<void(std::string_view)> output;
  std::function<void(std::string_view)> errors;
};

/// A program while it runs: a session of its own, fed and listened to without waiting.
class ChildProcess {
public:
  /// The input must outlive this.
  ChildProcess(const ProcessRequest& request, std::string_view input, ProgramListeners listeners);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  /// Kills and reaps what still runs.
  ~ChildProcess();

  /// Serves input and output until something happens, at most for this long. How the program
  /// ended, once it has; an errno when it never ran.
  [[nodiscard]] std::optional<ProgramOutcome> serve(int milliseconds);
  /// Sends a signal to the program and all that it started; false when none of them is left.
  bool signalAll(int number) const;

private:
  [[nodiscard]] int start(const ProcessRequest& request);
  void follow(pid_t process);
  void writeInput();
  void readErrors();
  void readOutput();
  [[nodiscard]] std::optional<ProgramOutcome> reap();

  ProgramListeners listeners_;
  std::string_view input_;
  FileDescriptor inputEnd_;
  FileDescriptor outputEnd_;
  FileDescriptor errorEnd_;
  FileDescriptor processEnd_; ///< readable once the process ended
  pid_t process_ = 0;
  std::optional<ProgramOutcome> outcome_;
};

} // namespace tavrel
