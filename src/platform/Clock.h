#pragma once

#include <cstdint>
#include <functional>

namespace tavrel {

using TimerId = std::uint64_t;

/// Time. Nobody else in the system asks for it. A negative span, or NaN, counts as 0.
class Clock {
public:
  virtual ~Clock() = default;

  /// Seconds since 2001-01-01 00:00 GMT. Never runs backwards within a process.
  [[nodiscard]] virtual double now() = 0;

  /// Blocks the caller. An adapter may service its own connections; no timer or event runs. A sleep
  /// right after a keystroke of KeyPurpose::copySelection may end early when the application's
  /// answer is known.
  virtual void sleep(double seconds) = 0;

  /// Calls once, from the event loop, after at least that many seconds (0: at its next turn).
  [[nodiscard]] virtual TimerId schedule(double seconds, std::function<void()> action) = 0;

  /// A timer that fired or was cancelled is ignored.
  virtual void cancel(TimerId timer) = 0;
};

} // namespace tavrel
