#include "script/values/CodePoints.h"

#include <cstdint>

namespace tavrel::script {
namespace {

// The letters from U+00C0 to U+017F without their accents; '-' for those that have no plain form.
constexpr std::string_view plainLetters =
    "AAAAAA-CEEEEIIII-NOOOOO-OUUUUY--aaaaaa-ceeeeiiii-nooooo-ouuuuy-y"
    "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi--JjKk-LlLlLlLlLlNnNnNn---OoOoOo--RrRrRrSs"
    "SsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZz-";
static_assert(plainLetters.size() == 0x180 - 0xC0);

bool within(char32_t c, char32_t first, char32_t last) {
  return c >= first && c <= last;
}

// Whether this is a capital of a range in which capitals and small letters take turns, so that its
// small letter is the next code point. In most of them the capitals are even, in some odd.
bool alternates(char32_t c) {
  const bool even = within(c, 0x100, 0x12F) || within(c, 0x132, 0x137) || within(c, 0x14A, 0x177) ||
                    within(c, 0x1E00, 0x1E95) || within(c, 0x1EA0, 0x1EFF) ||
                    within(c, 0x460, 0x481) || within(c, 0x48A, 0x4BF) || within(c, 0x4D0, 0x52F);
  const bool odd = within(c, 0x139, 0x148) || within(c, 0x179, 0x17E) || within(c, 0x4C1, 0x4CE);
  return (even && c % 2 == 0) || (odd && c % 2 == 1);
}

} // namespace

char32_t takeCodePoint(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<std::uint8_t>(text[i]) : std::uint8_t{0};
  };
  const std::uint8_t first = byte(at);
  const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  char32_t result = length == 1 ? first : first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i)
    result = (result << 6U) | (byte(at + i) & 0x3FU);
  at += length;
  return result;
}

void appendCodePoint(std::string& text, char32_t c) {
  if (c > 0x10FFFF || within(c, 0xD800, 0xDFFF))
    c = 0xFFFD;
  const unsigned more = c < 0x80 ? 0 : c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
  constexpr unsigned leads[] = {0, 0xC0, 0xE0, 0xF0};
  text += static_cast<char>(leads[more] | (c >> (6 * more)));
  for (unsigned i = more; i > 0; --i)
    text += static_cast<char>(0x80U | ((c >> (6 * (i - 1))) & 0x3FU));
}

char32_t caseFolded(char32_t c) {
  if (c < 0x80)
    return within(c, 'A', 'Z') ? c + 0x20 : c;
  if ((within(c, 0xC0, 0xDE) && c != 0xD7) || within(c, 0x391, 0x3AB) || within(c, 0x410, 0x42F))
    return c + 0x20;
  if (within(c, 0x400, 0x40F))
    return c + 0x50;
  if (within(c, 0x531, 0x556))
    return c + 0x30;
  if (c == 0x178)
    return 0xFF;
  return alternates(c) ? c + 1 : c;
}

char32_t withoutDiacritic(char32_t c) {
  if (!within(c, 0xC0, 0x17F))
    return c;
  const char plain = plainLetters[c - 0xC0];
  return plain == '-' ? c : static_cast<char32_t>(plain);
}

} // namespace tavrel::script
