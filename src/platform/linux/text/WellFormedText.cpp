#include "platform/linux/text/WellFormedText.h"

#include "base/Utf8.h"

namespace tavrel {

namespace {
constexpr std::string_view replacement = "\xEF\xBF\xBD";

bool isForbidden(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

// The bytes of the first character; one byte where there is none.
std::string_view firstCharacter(std::string_view text) {
  for (std::size_t length = 1; length <= 4 && length <= text.size(); ++length)
    if (isUtf8(text.substr(0, length)))
      return text.substr(0, length);
  return text.substr(0, 1);
}
} // namespace

std::string wellFormedText(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::string_view character = firstCharacter(text);
    result += isUtf8(character) && !isForbidden(character[0]) ? character : replacement;
    text.remove_prefix(character.size());
  }
  return result;
}

} // namespace tavrel
