#include "script/values/TextSplitting.h"

#include "script/values/CodePoints.h"
#include "script/values/Coercion.h"

#include <algorithm>

namespace tavrel::script {
namespace {

TextRanges characters(Runtime& runtime, const std::string& text) {
  TextRanges ranges(runtime.heap);
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    (void)takeCodePoint(text, at);
    ranges.add({start, std::min(at, text.size()) - start});
  }
  return ranges;
}

// Letters, digits and "_" of ASCII. Beyond ASCII everything is a letter but the ranges that hold
// blanks and punctuation.
bool isWordCharacter(char32_t c) {
  if (c < 0x80)
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
  const bool isLatinSign = c < 0xC0 && c != 0xAA && c != 0xB5 && c != 0xBA;
  const bool isSign = c == 0xD7 || c == 0xF7 || (c >= 0x2000 && c <= 0x206F) ||
                      (c >= 0x3000 && c <= 0x303F) || (c >= 0xFF00 && c <= 0xFF0F);
  return !isLatinSign && !isSign;
}

// Characters that can stand inside a word: "don't" and "3.5" are one word each.
bool joinsWords(char32_t c) {
  return c == '\'' || c == 0x2019 || c == '.' || c == ',';
}

// Whether such a character does stand inside one, which its neighbours decide.
bool joinsHere(char32_t c, char32_t before, std::string_view rest) {
  std::size_t at = 0;
  const char32_t after = rest.empty() ? U' ' : takeCodePoint(rest, at);
  const auto isDigit = [](char32_t each) { return each >= '0' && each <= '9'; };
  if (c == '.' || c == ',')
    return isDigit(before) && isDigit(after);
  return isWordCharacter(before) && isWordCharacter(after);
}

TextRanges words(Runtime& runtime, const std::string& text) {
  TextRanges ranges(runtime.heap);
  bool inside = false;
  char32_t before = U' ';
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    const char32_t c = takeCodePoint(text, at);
    at = std::min(at, text.size());
    const bool isInWord =
        isWordCharacter(c) ||
        (inside && joinsWords(c) && joinsHere(c, before, std::string_view(text).substr(at)));
    if (isInWord && !inside)
      ranges.add({start, 0});
    if (isInWord)
      ranges.last().length = at - ranges.last().start;
    inside = isInWord;
    before = c;
  }
  return ranges;
}

TextRanges paragraphs(Runtime& runtime, const std::string& text) {
  TextRanges ranges(runtime.heap);
  std::size_t start = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\n' && text[at] != '\r')
      continue;
    ranges.add({start, at - start});
    at += text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n' ? 1 : 0;
    start = at + 1;
  }
  ranges.add({start, text.size() - start});
  return ranges;
}

bool sameByte(char a, char b, bool caseCounts) {
  const auto lowered = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return caseCounts ? a == b : lowered(a) == lowered(b);
}

// The length of the longest delimiter that starts at a byte of the text; 0 when none does.
std::size_t delimiterAt(const std::string& text, std::size_t at,
                        const std::vector<std::string>& delimiters, bool caseCounts) {
  std::size_t longest = 0;
  for (const std::string& each : delimiters)
    if (each.size() > longest && each.size() <= text.size() - at &&
        std::equal(each.begin(), each.end(), text.begin() + static_cast<std::ptrdiff_t>(at),
                   [&](char a, char b) { return sameByte(a, b, caseCounts); }))
      longest = each.size();
  return longest;
}

std::vector<std::string> delimitersOf(Runtime& runtime) {
  std::vector<std::string> result;
  const auto* several = runtime.delimiters.as<List>();
  if (!several)
    return {textOf(runtime, runtime.delimiters)};
  const std::vector<Value> values = several->values();
  for (const Value& each : values)
    result.push_back(textOf(runtime, each));
  return result;
}

TextRanges textItems(Runtime& runtime, const std::string& text) {
  const std::vector<std::string> delimiters = delimitersOf(runtime);
  if (std::all_of(delimiters.begin(), delimiters.end(), [](const auto& d) { return d.empty(); }))
    return characters(runtime, text);
  TextRanges ranges(runtime.heap);
  std::size_t start = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length =
        delimiterAt(text, at, delimiters, runtime.considered.caseDifferences);
    if (length > 0) {
      ranges.add({start, at - start});
      start = at + length;
    }
    at += std::max<std::size_t>(length, 1);
    if (at % 1024 == 0)
      runtime.step(delimiters.size());
  }
  ranges.add({start, text.size() - start});
  return ranges;
}

} // namespace

void TextRanges::add(const TextRange& textAt) {
  if (ranges_.size() == counted_) {
    constexpr std::size_t more = 4096;
    reservation_.take(more * sizeof(TextRange));
    counted_ += more;
  }
  ranges_.push_back(textAt);
}

std::optional<TextRanges> splitText(Runtime& runtime, const std::string& text,
                                    std::string_view type) {
  runtime.step(text.size() / 16);
  if (type == "character" || type == "item" || type == "text")
    return characters(runtime, text);
  if (type == "word")
    return words(runtime, text);
  if (type == "paragraph")
    return paragraphs(runtime, text);
  if (type == "text item")
    return textItems(runtime, text);
  return std::nullopt;
}

} // namespace tavrel::script
