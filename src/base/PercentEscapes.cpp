#include "base/PercentEscapes.h"

#include "base/Ascii.h"

namespace tavrel {

namespace {
int hexValue(char c) {
  if (isDigit(c))
    return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}
} // namespace

bool startsWithEscape(std::string_view text) {
  return text.size() >= 3 && text[0] == '%' && hexValue(text[1]) >= 0 && hexValue(text[2]) >= 0;
}

std::string percentDecoded(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!startsWithEscape(text.substr(i))) {
      bytes += text[i];
      continue;
    }
    bytes += static_cast<char>(hexValue(text[i + 1]) * 16 + hexValue(text[i + 2]));
    i += 2;
  }
  return bytes;
}

} // namespace tavrel
