#pragma once

#include "platform/linux/x11/keyboard/ServerKey.h"

#include <xcb/xcb.h>

#include <vector>

namespace tavrel {

/// Key events as the server sent them.
using RecordedKeyEvents = std::vector<xcb_key_press_event_t>;

/// The same, put in the order in which they were typed: one that was forwarded to a window of ours
/// comes back after what was typed meanwhile, but with its time.
[[nodiscard]] RecordedKeyEvents inTheirOrder(RecordedKeyEvents events);

[[nodiscard]] bool isKeyEvent(const xcb_generic_event_t& event);

/// The keys to press and release, from a keyboard without any key down, so that the recorded ones
/// arrive as they were typed. Empty when there were only releases and modifiers. `downNow` is what
/// is down after the last event: a modifier that was down before the first one is found from that
/// and from its release. One that went down or up between two events without one of its own (the
/// keys of programs, while the grab was released to post) is found from the state that
/// came with the keys. Keys of `locks` (Caps Lock and the like) are left
/// out: they have taken effect.
[[nodiscard]] std::vector<ServerKey> keysToRetype(const RecordedKeyEvents& events,
                                                  const ServerKeySet& downNow,
                                                  const ModifierKeys& modifiers,
                                                  const ServerKeySet& locks);

} // namespace tavrel
