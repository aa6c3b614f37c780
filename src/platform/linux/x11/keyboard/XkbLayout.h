#pragma once

#include <string>
#include <string_view>

namespace tavrel {

/// The identifier of a group's layout, from the server's lists of layouts and variants (comma
/// separated): "com.apple.keylayout.US" for us, "com.apple.keylayout.Dvorak" for us with the
/// variant dvorak, else the layout's own name with the variant behind a hyphen, as
/// "com.apple.keylayout.De-nodeadkeys". Empty when the group has no layout.
[[nodiscard]] std::string layoutIdentifierOf(std::string_view layouts, std::string_view variants,
                                             std::size_t group);

} // namespace tavrel
