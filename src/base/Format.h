#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace tavrel {

/// The format with every "%@" replaced by the same text; a "%@" inside the text stays.
[[nodiscard]] std::string filled(std::string_view format, std::string_view text);

/// The format with each "%@" replaced by the next text; empty for those beyond the last.
[[nodiscard]] std::string filledInOrder(std::string_view format,
                                        std::initializer_list<std::string_view> texts);

} // namespace tavrel
