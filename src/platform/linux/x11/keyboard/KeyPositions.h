#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavrel {

/// The virtual key code of the key in a place of the keyboard, by the place's XKB name ("AC01" is
/// the first letter of the home row). Control is where Command is asked for, Super where Control
/// is. Nothing for a place that no virtual key code names.
[[nodiscard]] std::optional<std::uint16_t> virtualKeyCode(std::string_view xkbName);

} // namespace tavrel
