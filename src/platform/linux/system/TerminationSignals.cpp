#include "platform/linux/system/TerminationSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <fcntl.h>

namespace tavrel {

namespace {

volatile std::sig_atomic_t signalPipe = -1;
volatile std::sig_atomic_t signalReceived = 0;

// Only async-signal-safe calls are allowed here: the event loop does the rest.
void handleSignal(int) {
  const int savedErrno = errno;
  signalReceived = 1;
  (void)!::write(signalPipe, "", 1);
  errno = savedErrno;
}

} // namespace

TerminationSignals::TerminationSignals() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    return;
  pipeReadEnd_ = FileDescriptor(ends[0]);
  pipeWriteEnd_ = FileDescriptor(ends[1]);
  signalPipe = pipeWriteEnd_.get();
  // exit(), because quit() asks the windows first, and one of them may refuse to close.
  auto* notifier = new QSocketNotifier(pipeReadEnd_.get(), QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [notifier] {
    notifier->setEnabled(false);
    QCoreApplication::exit(0);
  });
  for (Handler& each : handlers_) {
    struct sigaction action = {};
    action.sa_handler = handleSignal;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    ::sigaction(each.signal, nullptr, &each.previous);
    if (each.previous.sa_handler != SIG_IGN)
      ::sigaction(each.signal, &action, nullptr);
  }
}

TerminationSignals::~TerminationSignals() {
  for (const Handler& each : handlers_)
    if (pipeWriteEnd_.isOpen())
      ::sigaction(each.signal, &each.previous, nullptr);
  signalPipe = -1;
  signalReceived = 0;
}

bool TerminationSignals::wereReceived() {
  return signalReceived != 0;
}

} // namespace tavrel
