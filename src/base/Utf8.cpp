#include "base/Utf8.h"

#include <cstdint>
#include <optional>

namespace tavrel {

namespace {

struct Sequence {
  char32_t codePoint = 0;
  std::size_t length = 0;
};

std::uint8_t byteAt(std::string_view text, std::size_t i) {
  return static_cast<std::uint8_t>(text[i]);
}

std::size_t sequenceLength(std::uint8_t lead) {
  if (lead < 0x80)
    return 1;
  if (lead >= 0xC2 && lead < 0xE0)
    return 2;
  if (lead >= 0xE0 && lead < 0xF0)
    return 3;
  return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

bool isCodePoint(char32_t value, std::size_t length) {
  constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = value >= 0xD800 && value < 0xE000;
  return value >= smallest[length] && value <= 0x10FFFF && !surrogate;
}

// The sequence at the front of a text that is not empty; nothing when it is malformed.
std::optional<Sequence> firstSequence(std::string_view text) {
  const std::uint8_t lead = byteAt(text, 0);
  const std::size_t length = sequenceLength(lead);
  if (length == 0 || length > text.size())
    return std::nullopt;
  char32_t value = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byteAt(text, i) & 0xC0) != 0x80)
      return std::nullopt;
    value = (value << 6) | (byteAt(text, i) & 0x3FU);
  }
  if (!isCodePoint(value, length))
    return std::nullopt;
  return Sequence{value, length};
}

void appendUtf16(std::u16string& text, char32_t value) {
  if (value < 0x10000) {
    text += static_cast<char16_t>(value);
    return;
  }
  text += static_cast<char16_t>(0xD800 + ((value - 0x10000) >> 10));
  text += static_cast<char16_t>(0xDC00 + ((value - 0x10000) & 0x3FF));
}

bool isHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

// The code point at the front of a text that is not empty, and how many units it takes.
Sequence firstCodePoint(std::u16string_view text) {
  if (isHighSurrogate(text[0]) && text.size() > 1 && isLowSurrogate(text[1]))
    return {0x10000U + ((text[0] - 0xD800U) << 10U) + (text[1] - 0xDC00U), 2};
  return {isHighSurrogate(text[0]) || isLowSurrogate(text[0]) ? char32_t{0xFFFD} : text[0], 1};
}

} // namespace

bool isUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto sequence = firstSequence(bytes);
    if (!sequence)
      return false;
    bytes.remove_prefix(sequence->length);
  }
  return true;
}

std::u16string utf16FromUtf8(std::string_view text) {
  std::u16string units;
  while (!text.empty()) {
    const Sequence sequence = firstSequence(text).value_or(Sequence{0xFFFD, 1});
    appendUtf16(units, sequence.codePoint);
    text.remove_prefix(sequence.length);
  }
  return units;
}

std::string utf8FromUtf16(std::u16string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const Sequence sequence = firstCodePoint(text);
    appendUtf8(bytes, sequence.codePoint);
    text.remove_prefix(sequence.length);
  }
  return bytes;
}

void appendUtf8(std::string& text, char32_t codePoint) {
  if (codePoint < 0x80) {
    text += static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    text +=
        {static_cast<char>(0xC0 | (codePoint >> 6)), static_cast<char>(0x80 | (codePoint & 0x3F))};
  } else if (codePoint < 0x10000) {
    text += {static_cast<char>(0xE0 | (codePoint >> 12)),
             static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F)),
             static_cast<char>(0x80 | (codePoint & 0x3F))};
  } else {
    text += {static_cast<char>(0xF0 | (codePoint >> 18)),
             static_cast<char>(0x80 | ((codePoint >> 12) & 0x3F)),
             static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F)),
             static_cast<char>(0x80 | (codePoint & 0x3F))};
  }
}

} // namespace tavrel
