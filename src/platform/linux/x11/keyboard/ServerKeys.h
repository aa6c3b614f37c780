#pragma once

#include "platform/linux/x11/keyboard/KeyGrabs.h"
#include "platform/linux/x11/keyboard/ServerModifiers.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"

#include <string>
#include <vector>

namespace tavrel {

/// The keys of the server as the layouts now loaded place them.
struct ServerKeys {
  XkbKeymap keymap; ///< null when the server does not tell: no key has a place then
  KeyTranslation translation{};
  ServerModifiers modifiers{};
};

[[nodiscard]] ServerKeys serverKeys(xcb_connection_t& connection);

/// What must be grabbed so that the combination (virtual key code and event-manager modifiers) is
/// caught whatever locks are on. Empty when this keyboard lacks one of its keys.
[[nodiscard]] std::vector<KeyGrab> grabsFor(const ServerKeys& keys, std::uint32_t keyCode,
                                            std::uint32_t modifiers);

/// The combination as people call it: "Ctrl+Alt+1".
[[nodiscard]] std::string combinationInWords(const ServerKeys& keys, std::uint32_t keyCode,
                                             std::uint32_t modifiers);

} // namespace tavrel
