#include "base/RtfText.h"

#include "base/Ascii.h"
#include "base/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <vector>

namespace tavrel {

namespace {

// Windows-1252, codes 128 to 159; 0 where it has no character. The rest is Latin 1.
constexpr std::array<char16_t, 32> windows1252{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

// Groups whose text is not the document's.
constexpr auto silentDestinations = std::to_array<std::string_view>(
    {"fonttbl", "colortbl", "stylesheet", "info", "pict", "object", "header", "footer", "footnote",
     "listtable", "rsidtbl", "generator"});

struct NamedText {
  std::string_view word;
  std::string_view text;
};
constexpr auto namedTexts = std::to_array<NamedText>({{"par", "\n"},
                                                      {"line", "\n"},
                                                      {"sect", "\n"},
                                                      {"page", "\n"},
                                                      {"row", "\n"},
                                                      {"tab", "\t"},
                                                      {"cell", "\t"},
                                                      {"emdash", "\u2014"},
                                                      {"endash", "\u2013"},
                                                      {"bullet", "\u2022"},
                                                      {"lquote", "\u2018"},
                                                      {"rquote", "\u2019"},
                                                      {"ldblquote", "\u201C"},
                                                      {"rdblquote", "\u201D"}});

struct Group {
  bool silent = false;
  std::size_t skipAfterUnicode = 1; ///< characters that stand in for one of \u
};

struct ControlWord {
  std::string_view name;
  std::optional<int> number;
};

class Reader {
public:
  explicit Reader(std::string_view rtf) : rest_(rtf) {}

  std::string text() {
    while (!rest_.empty() && !ended_)
      step();
    return std::move(text_);
  }

private:
  char take() {
    const char c = rest_.front();
    rest_.remove_prefix(1);
    return c;
  }

  void step() {
    const char c = take();
    if (c == '{')
      groups_.push_back(groups_.back());
    else if (c == '}')
      closeGroup();
    else if (c == '\\')
      control();
    else if (c != '\r' && c != '\n')
      addByte(c);
  }

  void closeGroup() {
    groups_.pop_back();
    ended_ = groups_.size() <= 1;
  }

  void control() {
    if (rest_.empty())
      return;
    if (isLetter(rest_.front()))
      return perform(takeWord());
    switch (const char symbol = take()) {
    case '\'':
      return addHexByte();
    case '*':
      groups_.back().silent = true;
      return;
    case '~':
      return add(0xA0);
    case '_':
      return add(0x2011);
    case '\r':
    case '\n':
      return add('\n');
    case '-':
    case ':':
    case '|':
      return;
    default:
      return addByte(symbol);
    }
  }

  ControlWord takeWord() {
    ControlWord word;
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), isLetter);
    word.name = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    rest_.remove_prefix(word.name.size());
    int number = 0;
    const auto [after, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
    if (error == std::errc()) {
      word.number = number;
      rest_.remove_prefix(static_cast<std::size_t>(after - rest_.data()));
    }
    if (!rest_.empty() && rest_.front() == ' ')
      rest_.remove_prefix(1);
    return word;
  }

  void perform(const ControlWord& word) {
    const std::size_t count = static_cast<std::size_t>(std::max(word.number.value_or(0), 0));
    if (word.name == "u" && word.number)
      return addUnicode(*word.number);
    if (word.name == "uc")
      groups_.back().skipAfterUnicode = count;
    else if (word.name == "bin")
      rest_.remove_prefix(std::min(count, rest_.size()));
    else if (std::find(silentDestinations.begin(), silentDestinations.end(), word.name) !=
             silentDestinations.end())
      groups_.back().silent = true;
    else
      addNamed(word.name);
  }

  void addNamed(std::string_view name) {
    for (const NamedText& named : namedTexts)
      if (named.word == name && !groups_.back().silent)
        text_ += named.text;
  }

  // A number above 32767 is written as a negative one; two units make one character beyond 65535.
  void addUnicode(int number) {
    const auto unit = static_cast<char16_t>(number);
    skip_ = groups_.back().skipAfterUnicode;
    if (unit >= 0xD800 && unit < 0xDC00) {
      highSurrogate_ = unit;
      return;
    }
    const bool low = unit >= 0xDC00 && unit < 0xE000;
    if (low && highSurrogate_ == 0)
      return put(0xFFFD);
    put(low ? 0x10000U + ((highSurrogate_ - 0xD800U) << 10) + (unit - 0xDC00U) : unit);
    highSurrogate_ = 0;
  }

  void addHexByte() {
    unsigned value = 0;
    const std::string_view digits = rest_.substr(0, 2);
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    rest_.remove_prefix(digits.size());
    if (error == std::errc() && end == digits.data() + digits.size())
      addByte(static_cast<char>(value));
  }

  void addByte(char c) {
    const auto byte = static_cast<std::uint8_t>(c);
    const char32_t foreign = byte >= 0x80 && byte < 0xA0 ? windows1252[byte - 0x80U] : byte;
    add(foreign == 0 ? 0xFFFD : foreign);
  }

  void add(char32_t c) {
    if (skip_ > 0)
      --skip_;
    else
      put(c);
  }

  void put(char32_t c) {
    if (!groups_.back().silent)
      appendUtf8(text_, c);
  }

  std::string_view rest_;
  std::string text_;
  std::vector<Group> groups_{1};
  std::size_t skip_ = 0;
  char16_t highSurrogate_ = 0;
  bool ended_ = false;
};

} // namespace

std::optional<std::string> textOfRtf(std::string_view rtf) {
  if (!rtf.starts_with("{\\rtf"))
    return std::nullopt;
  return Reader(rtf).text();
}

} // namespace tavrel
