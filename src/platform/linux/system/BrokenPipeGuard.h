#pragma once

#include <csignal>
#include <ctime>

namespace tavrel {

/// While it lives, writing to a pipe that nobody reads fails with EPIPE and sends no signal: the
/// one for this thread is held back and taken away.
class BrokenPipeGuard {
public:
  BrokenPipeGuard() {
    ::sigemptyset(&pipe_);
    ::sigaddset(&pipe_, SIGPIPE);
    (void)::pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
  }
  BrokenPipeGuard(const BrokenPipeGuard&) = delete;
  BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;
  ~BrokenPipeGuard() {
    const timespec now{};
    (void)::sigtimedwait(&pipe_, nullptr, &now);
    (void)::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }

private:
  sigset_t pipe_{};
  sigset_t before_{};
};

} // namespace tavrel
