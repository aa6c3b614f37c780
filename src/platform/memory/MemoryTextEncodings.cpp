#include "platform/memory/MemoryTextEncodings.h"

#include "base/AsciiForms.h"
#include "base/MacRoman.h"
#include "base/Utf8.h"

#include <algorithm>
#include <array>

namespace tavrel {

namespace {

struct KnownEncoding {
  StringEncoding platform;
  StringEncoding framework;
  const char* name;
};

constexpr StringEncoding ascii = 1;
constexpr StringEncoding utf8 = 4;
constexpr StringEncoding latin1 = 5;
constexpr StringEncoding macRoman = 30;

constexpr std::array<KnownEncoding, 4> known{{{0x08000100, utf8, "Unicode (UTF-8)"},
                                              {0, macRoman, "Western (Mac OS Roman)"},
                                              {0x0600, ascii, "Western (ASCII)"},
                                              {0x0201, latin1, "Western (ISO Latin 1)"}}};

const KnownEncoding* find(StringEncoding encoding) {
  const auto* found = std::ranges::find(known, encoding, &KnownEncoding::platform);
  return found == known.end() ? nullptr : found;
}

// The code of a character; nothing for one that the encoding does not have.
std::optional<std::uint8_t> codeIn(StringEncoding encoding, char32_t character) {
  if (encoding == macRoman) {
    const std::uint8_t code = macRomanCode(character);
    return code == 0 && character != 0 ? std::nullopt : std::optional(code);
  }
  const char32_t largest = encoding == ascii ? 0x7F : 0xFF;
  return character > largest ? std::nullopt : std::optional(static_cast<std::uint8_t>(character));
}

std::string substituteIn(StringEncoding encoding, char32_t character) {
  const std::string_view form = asciiForm(character);
  if (!form.empty())
    return std::string(form);
  return encoding == latin1 && character > 0xFFFF ? "??" : "?";
}

// The character at the front of a text that is not empty, taken off.
char32_t takeCharacter(std::u16string_view& text) {
  const bool isPair = (text[0] & 0xFC00U) == 0xD800U;
  const char32_t character =
      isPair ? 0x10000U + ((text[0] - 0xD800U) << 10U) + (text[1] - 0xDC00U) : text[0];
  text.remove_prefix(isPair ? 2 : 1);
  return character;
}

Bytes bytesIn(StringEncoding encoding, std::u16string_view text) {
  Bytes bytes;
  while (!text.empty()) {
    const char32_t character = takeCharacter(text);
    if (const auto code = codeIn(encoding, character))
      bytes.push_back(*code);
    else
      for (const char each : substituteIn(encoding, character))
        bytes.push_back(static_cast<std::uint8_t>(each));
  }
  return bytes;
}

} // namespace

std::vector<StringEncoding> MemoryTextEncodings::available() {
  std::vector<StringEncoding> list = control.listed;
  list.push_back(invalidEncoding);
  return list;
}

std::optional<std::string> MemoryTextEncodings::nameOf(StringEncoding encoding) {
  const KnownEncoding* found = find(encoding);
  return found ? std::optional<std::string>(found->name) : std::nullopt;
}

StringEncoding MemoryTextEncodings::frameworkEncoding(StringEncoding encoding) {
  const KnownEncoding* found = find(encoding);
  return found ? found->framework : invalidEncoding;
}

std::optional<Bytes> MemoryTextEncodings::lossyData(std::string_view text,
                                                    StringEncoding encoding) {
  if (std::ranges::find(known, encoding, &KnownEncoding::framework) == known.end())
    return std::nullopt;
  const std::u16string units = utf16FromUtf8(text);
  if (encoding != utf8)
    return bytesIn(encoding, units);
  const std::string wellFormed = utf8FromUtf16(units);
  return Bytes(wellFormed.begin(), wellFormed.end());
}

} // namespace tavrel
