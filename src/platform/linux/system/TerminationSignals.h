#pragma once

#include "platform/linux/system/FileDescriptor.h"

#include <QObject>

#include <array>
#include <csignal>

namespace tavrel {

/// Ends the event loop when the process is told to end (SIGTERM, SIGINT, SIGHUP), so that what is
/// kept in memory is put in its place on the way out. The same signal once more ends the process at
/// once. One that was ignored from the start stays ignored. There can be one of this at a time.
class TerminationSignals final : public QObject {
public:
  TerminationSignals();
  ~TerminationSignals() override;

  /// Whether the process has been told to end. Any thread.
  [[nodiscard]] static bool haveCome();

private:
  struct Handled {
    int signal;
    struct sigaction before {};
  };

  FileDescriptor reading_;
  FileDescriptor writing_;
  std::array<Handled, 3> handled_{{{SIGTERM}, {SIGINT}, {SIGHUP}}};
};

} // namespace tavrel
