#pragma once

#include <string_view>

namespace tavrel {

/// What a character becomes where only ASCII can be written, as "AE" for Æ and "..." for the
/// ellipsis: an accent is left out, a sign is spelled. Empty for a character without such a form.
[[nodiscard]] std::string_view asciiForm(char32_t character);

} // namespace tavrel
