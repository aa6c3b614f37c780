#pragma once

#include <string>
#include <string_view>

namespace tavrel {

/// Why the text is no XML property list, as one clause; empty when it is one. Nothing is built:
/// the check holds the open elements alone.
[[nodiscard]] std::string problemOfXmlPropertyList(std::string_view text);

} // namespace tavrel
