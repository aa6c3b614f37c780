#pragma once

#include "platform/linux/ExecutableScript.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/LineSplitter.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace tavrel {

/// An executable script while it runs: a session of its own, fed and listened to without waiting.
class ScriptProcess {
public:
  /// `output` gets standard output; without it that goes nowhere.
  ScriptProcess(const ExecutableScript& script, const std::string& selectionFile,
                LineSplitter& lines, std::function<void(std::string_view)> output = {});
  ScriptProcess(const ScriptProcess&) = delete;
  ScriptProcess& operator=(const ScriptProcess&) = delete;
  /// Kills and reaps what still runs.
  ~ScriptProcess();

  /// Serves input and output until something happens, at most for this long. How the script
  /// ended, once it has; an errno when it never ran.
  [[nodiscard]] std::optional<ExecutableOutcome> serve(int milliseconds);
  /// Sends a signal to the script and all that it started; false when none of them is left.
  bool signalAll(int number) const;

private:
  [[nodiscard]] int start(const ExecutableScript& script, const std::string& selectionFile);
  void follow(pid_t process);
  void writeInput();
  void readErrors();
  void readOutput();
  [[nodiscard]] std::optional<ExecutableOutcome> reap();

  LineSplitter& lines_;
  std::function<void(std::string_view)> output_;
  std::string_view input_;
  FileDescriptor inputEnd_;
  FileDescriptor outputEnd_;
  FileDescriptor errorEnd_;
  FileDescriptor processEnd_; ///< readable once the process ended
  pid_t process_ = 0;
  std::optional<ExecutableOutcome> outcome_;
};

} // namespace tavrel
