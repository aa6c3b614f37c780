#pragma once

#include "base/PropertyList.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavrel {

/// How many question marks stand for a character that takes two UTF-16 units.
enum class LostCharacter : std::uint8_t { onePerCharacter, onePerUnit };

/// Whether ICU has a converter of that name.
[[nodiscard]] bool hasConverter(const char* name);

/// The text in an encoding, by the name of its converter in ICU. A character that the encoding does
/// not have is written in ASCII where that is possible (an accent is left out, a ligature is
/// spelled out), else as a question mark. Nothing without such a converter.
[[nodiscard]] std::optional<Bytes> convertLossily(std::u16string_view text, const char* converter,
                                                  LostCharacter lost);

} // namespace tavrel
