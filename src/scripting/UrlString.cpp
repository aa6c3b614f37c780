#include "scripting/UrlString.h"

#include "platform/Platform.h"

#include <algorithm>
#include <array>

namespace tavrel {

namespace {

using Passes = std::array<bool, 256>;

constexpr Passes passing() {
  Passes passes{};
  for (std::size_t byte = 0x10; byte <= 0x7E; ++byte)
    passes.at(byte) = true;
  for (const char escaped : std::string_view(" <>[]^`|{}"))
    passes.at(static_cast<unsigned char>(escaped)) = false;
  return passes;
}

constexpr Passes passes = passing();

bool isEscaped(char byte) {
  return !passes[static_cast<unsigned char>(byte)];
}

void appendEscape(std::string& escaped, unsigned char byte) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  const std::array<char, 3> escape{'%', digits[byte >> 4U], digits[byte & 0x0FU]};
  escaped.append(escape.data(), escape.size());
}

void appendEscaped(std::string& escaped, char byte, LineEndings endings) {
  if (byte != '\n' || endings == LineEndings::lineFeed)
    return appendEscape(escaped, static_cast<unsigned char>(byte));
  escaped.append(endings == LineEndings::carriageReturn ? "%0D" : "%0D%0A");
}

} // namespace

std::string escapedForUrl(std::string_view bytes, LineEndings endings) {
  std::string escaped;
  escaped.reserve(bytes.size() + bytes.size() / 2);
  for (const char* at = bytes.begin(); at != bytes.end();) {
    const char* stop = std::find_if(at, bytes.end(), isEscaped);
    escaped.append(at, stop);
    at = stop;
    if (at != bytes.end())
      appendEscaped(escaped, *at++, endings);
  }
  return escaped;
}

PropertyList URLStringInEncoding(std::string_view text, StringEncoding encoding,
                                 LineEndings endings, RawData rawData) {
  const auto encoded = platform().textEncodings.lossyData(text, encoding).value_or(Bytes());
  const std::string_view bytes(reinterpret_cast<const char*>(encoded.data()), encoded.size());
  std::string escaped = escapedForUrl(bytes, endings);
  if (rawData == RawData::yes)
    return Bytes(escaped.begin(), escaped.end());
  return escaped;
}

} // namespace tavrel
