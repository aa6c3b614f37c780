#pragma once

#include <cstdint>

namespace tavrel {

/// A modifier mask of the event-manager form in the interface form (base/Modifiers.h). Caps lock,
/// and what tells right-hand keys from left-hand ones, is dropped.
[[nodiscard]] std::uint32_t carbonModifierFlagsToCocoaModifierFlags(std::uint32_t modifiers);

/// The event-manager mask that a shortcut is registered with: Command always, whatever `modifiers`
/// (interface form) says of it, and Shift also for an upper-case letter.
[[nodiscard]] std::uint32_t hotKeyModifiers(char16_t character, std::uint32_t modifiers);

} // namespace tavrel
