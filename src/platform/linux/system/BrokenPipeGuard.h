#pragma once

#include <csignal>
#include <ctime>

namespace tavrel {

/// While it lives, a write to a pipe that nobody reads fails with EPIPE and does not end the
/// process by SIGPIPE: that signal is blocked in this thread, and one that is pending is discarded.
class BrokenPipeGuard {
public:
  BrokenPipeGuard() {
    ::sigemptyset(&pipeSignal_);
    ::sigaddset(&pipeSignal_, SIGPIPE);
    (void)::pthread_sigmask(SIG_BLOCK, &pipeSignal_, &previousMask_);
  }
  BrokenPipeGuard(const BrokenPipeGuard&) = delete;
  BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;
  ~BrokenPipeGuard() {
    const timespec now{};
    (void)::sigtimedwait(&pipeSignal_, nullptr, &now);
    (void)::pthread_sigmask(SIG_SETMASK, &previousMask_, nullptr);
  }

private:
  sigset_t pipeSignal_{};
  sigset_t previousMask_{};
};

} // namespace tavrel
