#pragma once

#include <string>
#include <string_view>

namespace tavrel {

/// The text with U+FFFD in place of what is no UTF-8 and of control characters that XML cannot
/// hold (all but tab, line feed and carriage return).
[[nodiscard]] std::string wellFormedText(std::string_view text);

} // namespace tavrel
