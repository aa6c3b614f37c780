#include "platform/common/ScriptSource.h"

#include <algorithm>
#include <array>
#include <string>

namespace tavrel {

namespace {

constexpr std::array<std::string_view, 6> shellPhrases{
    "do shell script", "run script", "load script", "store script", "use framework", "\xC2\xAB"};

/// Where a quoted string that begins at a place ends, its closing mark included.
std::size_t endOfQuoted(std::string_view source, std::size_t at) {
  for (++at; at < source.size() && source[at] != '"'; ++at)
    if (source[at] == '\\')
      ++at;
  return std::min(at + 1, source.size());
}

// Blanks of all kinds, also the one that does not break, and the mark of a line that goes on.
std::size_t lengthOfBlank(std::string_view rest) {
  if (rest.starts_with("\xC2\xA0") || rest.starts_with("\xC2\xAC"))
    return 2;
  return static_cast<unsigned char>(rest.front()) <= ' ' ? 1 : 0;
}

void appendBlank(std::string& words) {
  if (!words.ends_with(' '))
    words += ' ';
}

/// The text in small letters, with one blank for every quoted string and every run of blanks.
std::string unquotedWords(std::string_view source) {
  std::string words;
  for (std::size_t at = 0; at < source.size();) {
    const std::size_t blank = lengthOfBlank(source.substr(at));
    const bool quoted = source[at] == '"';
    if (quoted || blank > 0)
      appendBlank(words);
    else
      words +=
          source[at] >= 'A' && source[at] <= 'Z' ? static_cast<char>(source[at] + 32) : source[at];
    at = quoted ? endOfQuoted(source, at) : at + std::max<std::size_t>(blank, 1);
  }
  return words;
}

} // namespace

bool asksForShell(std::string_view source) {
  const std::string words = unquotedWords(source);
  return std::ranges::any_of(shellPhrases, [&words](std::string_view phrase) {
    return words.find(phrase) != std::string::npos;
  });
}

} // namespace tavrel
