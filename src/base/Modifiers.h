#pragma once

#include <cstdint>

namespace tavrel {

/// Modifier keys as settings, records and menus hold them (the interface form).
namespace modifier {
inline constexpr std::uint32_t capsLock = 0x10000;
inline constexpr std::uint32_t shift = 0x20000;
inline constexpr std::uint32_t control = 0x40000;
inline constexpr std::uint32_t option = 0x80000;
inline constexpr std::uint32_t command = 0x100000;
inline constexpr std::uint32_t function = 0x800000;
} // namespace modifier

/// Modifier keys as hot keys are registered and keystrokes posted (the event-manager form).
namespace eventModifier {
inline constexpr std::uint32_t command = 0x100;
inline constexpr std::uint32_t shift = 0x200;
inline constexpr std::uint32_t capsLock = 0x400;
inline constexpr std::uint32_t option = 0x800;
inline constexpr std::uint32_t control = 0x1000;
inline constexpr std::uint32_t function = 0x20000;
} // namespace eventModifier

/// Virtual key codes of the modifier keys (left-hand ones where a keyboard has two).
namespace keyCode {
inline constexpr std::uint16_t command = 55;
inline constexpr std::uint16_t shift = 56;
inline constexpr std::uint16_t capsLock = 57;
inline constexpr std::uint16_t option = 58;
inline constexpr std::uint16_t control = 59;
inline constexpr std::uint16_t function = 63;
} // namespace keyCode

} // namespace tavrel
