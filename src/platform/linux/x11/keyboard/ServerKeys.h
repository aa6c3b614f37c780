#pragma once

#include "platform/linux/x11/keyboard/KeyGrabs.h"
#include "platform/linux/x11/keyboard/ServerModifiers.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"

#include <string>
#include <vector>

namespace tavrel {

/// The keymap of the server now, the virtual key codes of its keys, and its modifiers.
struct ServerKeys {
  XkbKeymap keymap; ///< null when the server has none to read: no key has a code then
  KeyTranslation translation{};
  ServerModifiers modifiers{};
};

[[nodiscard]] ServerKeys serverKeys(xcb_connection_t& connection);

/// What must be grabbed to catch a combination (virtual key code and event-manager modifiers)
/// whether Caps Lock, Num Lock and Scroll Lock are on or off. Empty when this keyboard lacks one of
/// its keys.
[[nodiscard]] std::vector<KeyGrab> grabsFor(const ServerKeys& keys, std::uint32_t keyCode,
                                            std::uint32_t modifiers);

/// The combination as users read it: "Ctrl+Alt+1".
[[nodiscard]] std::string combinationInWords(const ServerKeys& keys, std::uint32_t keyCode,
                                             std::uint32_t modifiers);

} // namespace tavrel
