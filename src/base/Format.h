#pragma once

#include <string>
#include <string_view>

namespace tavrel {

/// The format with every "%@" replaced by the same text; the text itself is not looked at.
[[nodiscard]] std::string filled(std::string_view format, std::string_view text);

} // namespace tavrel
