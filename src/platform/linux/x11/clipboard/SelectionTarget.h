#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// One target of an X11 selection (a format that its owner offers) as a pasteboard type: "x11:" and
/// the target's name. Property type and format go into the name, because copying from pasteboard to
/// pasteboard moves names and bytes only:
///   x11:image/png                          the usual: of type image/png, format 8
///   x11:COLORS;type=INTEGER;format=32      another type of property, or units of 16 or 32 bits
///                                          (in the type ";" is "%3B", "%" is "%25")
///   x11:image/tiff;unread                  offered, but not sent before the timeout
struct SelectionTarget {
  std::string target;
  std::string type;        ///< of the property
  std::uint8_t format = 8; ///< bits a unit: 8, 16 or 32
  bool unread = false;

  friend bool operator==(const SelectionTarget&, const SelectionTarget&) = default;
};

[[nodiscard]] std::string pasteboardName(const SelectionTarget& target);

/// The target that a pasteboard type stands for; nothing for another kind of type.
[[nodiscard]] std::optional<SelectionTarget> selectionTargetNamed(std::string_view name);

[[nodiscard]] bool hasSelectionTargets(const std::vector<std::string>& names);

/// Whether there is no data to serve under these names: there are none, or all are `;unread`.
[[nodiscard]] bool hasNothingToServe(const std::vector<std::string>& names);

} // namespace tavrel
