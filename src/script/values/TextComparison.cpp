#include "script/values/TextComparison.h"

#include "script/values/CodePoints.h"

namespace tavrel::script {
namespace {

bool isBlank(char32_t c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == 0xA0;
}

bool isHyphen(char32_t c) {
  return c == '-' || (c >= 0x2010 && c <= 0x2013);
}

bool isPunctuation(char32_t c) {
  return c < 0x80 &&
         std::string_view(".,?:;!'\"`").find(static_cast<char>(c)) != std::string_view::npos;
}

// Whether comparisons look at the code point at all.
bool counts(const Considered& considered, char32_t c) {
  return (considered.whiteSpace || !isBlank(c)) && (considered.hyphens || !isHyphen(c)) &&
         (considered.punctuation || !isPunctuation(c));
}

// With `considering numeric strings` digits side by side compare as one number: "2" before "10".
int compareNumerically(const std::u32string& a, const std::u32string& b) {
  const auto isDigit = [](char32_t c) { return c >= '0' && c <= '9'; };
  const auto run = [&](const std::u32string& text, std::size_t& at) {
    while (at < text.size() && text[at] == '0')
      ++at;
    const std::size_t start = at;
    while (at < text.size() && isDigit(text[at]))
      ++at;
    return text.substr(start, at - start);
  };
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() && j < b.size()) {
    if (isDigit(a[i]) && isDigit(b[j])) {
      const std::u32string x = run(a, i);
      const std::u32string y = run(b, j);
      if (x.size() != y.size())
        return x.size() < y.size() ? -1 : 1;
      if (x != y)
        return x < y ? -1 : 1;
    } else if (a[i] != b[j]) {
      return a[i] < b[j] ? -1 : 1;
    } else {
      ++i;
      ++j;
    }
  }
  return i < a.size() ? 1 : j < b.size() ? -1 : 0;
}

} // namespace

std::u32string comparisonKey(const Runtime& runtime, std::string_view text) {
  HeapReservation room(runtime.heap);
  room.take(text.size() * sizeof(char32_t));
  std::u32string result;
  result.reserve(text.size());
  const Considered& considered = runtime.considered;
  for (std::size_t at = 0; at < text.size();) {
    char32_t c = takeCodePoint(text, at);
    if (!counts(considered, c))
      continue;
    if (!considered.caseDifferences)
      c = caseFolded(c);
    result += considered.diacriticals ? c : withoutDiacritic(c);
  }
  return result;
}

int compareTexts(Runtime& runtime, const std::string& a, const std::string& b) {
  if (&a == &b)
    return 0;
  runtime.step((a.size() + b.size()) / 64);
  const std::u32string x = comparisonKey(runtime, a);
  const std::u32string y = comparisonKey(runtime, b);
  if (runtime.considered.numericStrings)
    return compareNumerically(x, y);
  const int result = x.compare(y);
  return result < 0 ? -1 : result > 0 ? 1 : 0;
}

} // namespace tavrel::script
