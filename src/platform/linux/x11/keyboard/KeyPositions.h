#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tavrel {

/// A place on the keyboard: the name that XKB has for it ("AC01" is the first letter of the home
/// row), and the virtual key code of the key there.
struct KeyPosition {
  std::string_view xkbName;
  std::uint16_t keyCode;
};

/// Every place that has a virtual key code. The Ctrl keys have the codes of Command, the Super keys
/// those of Control: so a shortcut with Command is pressed with Ctrl, as users of this desktop
/// expect.
[[nodiscard]] std::span<const KeyPosition> keyPositions();

/// The virtual key code of the place with that XKB name; nothing when no virtual key code names it.
[[nodiscard]] std::optional<std::uint16_t> virtualKeyCode(std::string_view xkbName);

} // namespace tavrel
