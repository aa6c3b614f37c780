#pragma once

#include <string>
#include <string_view>

namespace tavrel {

/// Whether the text begins with an escape: a percent sign and two hexadecimal digits.
[[nodiscard]] bool startsWithEscape(std::string_view text);

/// Every escape replaced by the byte that it stands for; any bytes may come out. A percent sign
/// that begins no escape stays as it is.
[[nodiscard]] std::string percentDecoded(std::string_view text);

} // namespace tavrel
