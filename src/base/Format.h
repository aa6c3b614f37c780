#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// The format with every "%@" replaced by the same text; a "%@" inside the text stays.
[[nodiscard]] std::string filled(std::string_view format, std::string_view text);

/// The format with each "%@" replaced by the next text; empty for those beyond the last.
[[nodiscard]] std::string filledInOrder(std::string_view format,
                                        const std::vector<std::string>& texts);

} // namespace tavrel
