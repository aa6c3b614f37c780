#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// One target of an X11 selection, as pasteboards name it: "x11:" and the target. What a selection
/// was answered with beyond its bytes travels in the name, because copying from pasteboard to
/// pasteboard moves names and bytes alone:
///   x11:image/png                          the usual: of type image/png, format 8
///   x11:COLORS;type=INTEGER;format=32      another type of property, or units of 16 or 32 bits
///                                          (in the type ";" is "%3B", "%" is "%25")
///   x11:image/tiff;unread                  listed by its owner, who did not hand it over in time
struct NativeTarget {
  std::string target;
  std::string type;        ///< of the property
  std::uint8_t format = 8; ///< bits a unit: 8, 16 or 32
  bool unread = false;

  friend bool operator==(const NativeTarget&, const NativeTarget&) = default;
};

[[nodiscard]] std::string pasteboardName(const NativeTarget& target);

/// Nothing for a name of another kind.
[[nodiscard]] std::optional<NativeTarget> nativeTargetOfName(std::string_view name);

[[nodiscard]] bool hasNativeTargets(const std::vector<std::string>& names);

/// Whether nobody can be given anything under these names, as when there are none.
[[nodiscard]] bool areAllUnread(const std::vector<std::string>& names);

} // namespace tavrel
