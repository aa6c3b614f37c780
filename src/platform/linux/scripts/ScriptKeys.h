#pragma once

#include "platform/linux/scripts/ScriptDesktop.h"

namespace tavrel {

/// A key that is pressed, and the modifiers that are held meanwhile, as virtual key codes.
struct ScriptKey {
  KeyboardEvent key;
  std::vector<std::uint16_t> modifiers;
};

/// Presses and releases a key in the application in front. False when it could not be sent.
[[nodiscard]] bool pressInFront(ScriptDesktop& desktop, const ScriptKey& key);

/// `keystroke` types a text key by key, `key code` presses keys by their virtual key codes; with
/// the modifiers of `using` held. A character that no key of the user's layouts types is left out.
[[nodiscard]] script::HostAnswer typeKeystroke(ScriptDesktop& desktop,
                                               const script::HostEvent& event);
[[nodiscard]] script::HostAnswer typeKeyCode(ScriptDesktop& desktop,
                                             const script::HostEvent& event);

} // namespace tavrel
