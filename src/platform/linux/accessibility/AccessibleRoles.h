#pragma once

#include <cstdint>
#include <string_view>

namespace tavrel {

/// An element's properties on the accessibility bus; roles by the numbers of AT-SPI 2 (AtspiRole).
struct AccessibleFacts {
  std::uint32_t role = 0;
  std::uint32_t parentRole = 0;
  bool hasManyLines = false;
};

/// The AX role of an element; "AXUnknown" where there is no counterpart. Sliders and scroll bars
/// are value indicators, because AT-SPI has no element for the thumb. A menu is an item of the bar
/// or menu that it lies in.
[[nodiscard]] std::string_view axRole(const AccessibleFacts& facts);

/// Whether an element is a control, which counts as a whole with the images and labels in it.
[[nodiscard]] bool isControl(std::uint32_t role);

} // namespace tavrel
