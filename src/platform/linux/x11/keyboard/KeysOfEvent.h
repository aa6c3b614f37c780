#pragma once

#include "platform/linux/x11/keyboard/ServerKey.h"

#include <functional>
#include <optional>

namespace tavrel {

/// A key code that no key has: in a set of keys it stands for a use of the mouse, or of a key that
/// is up again.
inline constexpr std::size_t noServerKey = 0;

/// The keys that are down as a handled event has left them. Each answers nothing where no event is
/// handled: then the keyboard counts as it is now.
struct KeysOfEvent {
  std::function<std::optional<ServerKeySet>()> after; ///< right after the event
  /// The first call: as `after`. The second: after what came next, which it may wait for.
  std::function<std::optional<ServerKeySet>()> next;
};

} // namespace tavrel
