#include "platform/linux/system/TerminationSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <fcntl.h>

namespace tavrel {

namespace {

volatile std::sig_atomic_t terminationPipe = -1;
volatile std::sig_atomic_t toldToEnd = 0;

// Nearly nothing may be done in here: the rest is for the event loop.
void passOnTermination(int) {
  const int before = errno;
  toldToEnd = 1;
  (void)!::write(terminationPipe, "", 1);
  errno = before;
}

} // namespace

TerminationSignals::TerminationSignals() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    return;
  reading_ = FileDescriptor(ends[0]);
  writing_ = FileDescriptor(ends[1]);
  terminationPipe = writing_.get();
  // Not quit(): a window may refuse to close.
  auto* notifier = new QSocketNotifier(reading_.get(), QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [notifier] {
    notifier->setEnabled(false);
    QCoreApplication::exit(0);
  });
  for (Handled& each : handled_) {
    struct sigaction action {};
    action.sa_handler = passOnTermination;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    ::sigaction(each.signal, nullptr, &each.before);
    if (each.before.sa_handler != SIG_IGN)
      ::sigaction(each.signal, &action, nullptr);
  }
}

TerminationSignals::~TerminationSignals() {
  for (const Handled& each : handled_)
    if (writing_.isOpen())
      ::sigaction(each.signal, &each.before, nullptr);
  terminationPipe = -1;
  toldToEnd = 0;
}

bool TerminationSignals::haveCome() {
  return toldToEnd != 0;
}

} // namespace tavrel
