#pragma once

#include <cstdint>
#include <string_view>

namespace tavrel {

/// What the accessibility bus tells of an element, by its own numbers (AtspiRole).
struct AccessibleFacts {
  std::uint32_t role = 0;
  std::uint32_t parentRole = 0;
  bool hasManyLines = false;
};

/// The AX name of an element's role; "AXUnknown" for what has no counterpart. Sliders and scroll
/// bars are value indicators, as the bus does not tell the thumb from its track. A menu is an item
/// of the bar or menu that it lies in.
[[nodiscard]] std::string_view axRole(const AccessibleFacts& facts);

/// Whether an element is one thing to a person, whatever pictures and words lie in it.
[[nodiscard]] bool isControl(std::uint32_t role);

} // namespace tavrel
