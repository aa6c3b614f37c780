#pragma once

#include <cstdint>

namespace tavrel {

/// Event classes and identifiers, four characters each.
inline constexpr std::uint32_t kCoreEventClass = 0x61657674; ///< 'aevt'
inline constexpr std::uint32_t kAEReallyLogOut = 0x726C676F; ///< 'rlgo': without asking once more

/// An event for the process that runs the session.
struct SystemEvent {
  std::uint32_t eventClass = kCoreEventClass;
  std::uint32_t eventIdentifier = 0;
};

/// Requests to the session as a whole.
class SystemEvents {
public:
  virtual ~SystemEvents() = default;

  /// Sends an event and does not wait for what comes of it. 0 when it is under way, else the
  /// platform's negative code.
  [[nodiscard]] virtual std::int32_t send(const SystemEvent& event) = 0;
};

} // namespace tavrel
