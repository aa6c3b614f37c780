#include "platform/memory/MemoryTextEncodings.h"

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

constexpr std::array<KnownEncoding, 4> known{{{0x08000100, 4, "Unicode (UTF-8)"},
                                              {0, 30, "Western (Mac OS Roman)"},
                                              {0x0600, 1, "Western (ASCII)"},
                                              {0x0201, 5, "Western (ISO Latin 1)"}}};

const KnownEncoding* find(StringEncoding encoding) {
  const auto* found = std::ranges::find(known, encoding, &KnownEncoding::platform);
  return found == known.end() ? nullptr : found;
}

std::uint8_t codeIn(StringEncoding encoding, char16_t unit) {
  if (encoding == 30) {
    const std::uint8_t code = macRomanCode(unit);
    return code == 0 && unit != 0 ? std::uint8_t{'?'} : code;
  }
  const char16_t largest = encoding == 1 ? 0x7F : 0xFF;
  return unit > largest ? std::uint8_t{'?'} : static_cast<std::uint8_t>(unit);
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
  if (encoding == 4)
    return Bytes(text.begin(), text.end());
  if (std::ranges::find(known, encoding, &KnownEncoding::framework) == known.end())
    return std::nullopt;
  Bytes bytes;
  for (const char16_t unit : utf16FromUtf8(text))
    bytes.push_back(codeIn(encoding, unit));
  return bytes;
}

} // namespace tavrel
