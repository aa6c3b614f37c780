#pragma once

#include "platform/linux/system/FileDescriptor.h"

#include <QObject>

#include <array>
#include <csignal>

namespace tavrel {

/// Ends the event loop on SIGTERM, SIGINT and SIGHUP, so that preferences and scripts that are
/// still in memory are written on the way out. The same signal a second time ends the process at
/// once. A signal that was ignored at the start stays ignored. Only one object of this class may
/// exist.
class TerminationSignals final : public QObject {
public:
  TerminationSignals();
  ~TerminationSignals() override;

  /// Whether one of the signals has come. Any thread.
  [[nodiscard]] static bool wereReceived();

private:
  struct Handler {
    int signal;
    struct sigaction previous = {};
  };

  FileDescriptor pipeReadEnd_;
  FileDescriptor pipeWriteEnd_;
  std::array<Handler, 3> handlers_{{{SIGTERM}, {SIGINT}, {SIGHUP}}};
};

} // namespace tavrel
