#pragma once

#include <array>
#include <cstdint>

namespace tavrel {

/// A snapshot of the keyboard: key code k (0 to 127) is bit (k mod 8) of byte (k div 8).
struct KeyMap {
  std::array<std::uint8_t, 16> bytes{};

  /// False for codes above 127.
  [[nodiscard]] bool isDown(std::uint32_t keyCode) const;
  /// Codes above 127 are ignored.
  void set(std::uint32_t keyCode);
  void clear(std::uint32_t keyCode);
  [[nodiscard]] bool any() const;

  friend bool operator==(const KeyMap&, const KeyMap&) = default;
};

} // namespace tavrel
