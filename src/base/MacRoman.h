#pragma once

#include <cstdint>

namespace tavrel {

/// The Mac OS Roman code of a Unicode character; 0 for one that the set does not have.
[[nodiscard]] std::uint8_t macRomanCode(char32_t character);

} // namespace tavrel
