#pragma once

#include "platform/linux/x11/keyboard/ServerKey.h"

#include <xcb/xcb.h>

#include <vector>

namespace tavrel {

/// Key events as the server told of them, oldest first.
using RecordedKeyEvents = std::vector<xcb_key_press_event_t>;

[[nodiscard]] bool isKeyEvent(const xcb_generic_event_t& event);

/// What to press and release, from a keyboard without any key down, so that the keys arrive as they
/// were typed. Nothing when there were only releases and modifiers. `downNow` is what is down after
/// the last of them; a modifier that was held before the first is known from what became of it.
[[nodiscard]] std::vector<ServerKey> keysToRetype(const RecordedKeyEvents& typed,
                                                  const ServerKeySet& downNow,
                                                  const ServerKeySet& modifiers,
                                                  const ServerKeySet& locks);

} // namespace tavrel
