#include "platform/linux/plists/PropertyListXmlCheck.h"

#include "base/Utf8.h"
#include "platform/linux/plists/PropertyListCodec.h"
#include "platform/linux/text/XmlTokens.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <vector>

namespace tavrel {

namespace {

constexpr std::array<std::string_view, 10> elementNames{
    "plist", "dict", "array", "key", "string", "data", "integer", "real", "date", "true"};

bool isElementName(std::string_view name) {
  return name == "false" ||
         std::find(elementNames.begin(), elementNames.end(), name) != elementNames.end();
}

bool isContainer(std::string_view name) {
  return name == "plist" || name == "dict" || name == "array";
}

std::string_view trimmedText(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view withoutSign(std::string_view text) {
  if (text.starts_with('+') || text.starts_with('-'))
    text.remove_prefix(1);
  return text;
}

// A signed 64-bit integer; libplist 2.2 would wrap a larger one.
bool isInteger(std::string_view text) {
  const bool negative = trimmedText(text).starts_with('-');
  std::string_view digits = withoutSign(trimmedText(text));
  const bool hexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
  if (hexadecimal)
    digits.remove_prefix(2);
  std::uint64_t value = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, hexadecimal ? 16 : 10);
  constexpr std::uint64_t largest = std::numeric_limits<std::int64_t>::max();
  return error == std::errc() && end == digits.data() + digits.size() &&
         value <= largest + (negative ? 1 : 0);
}

bool isReal(std::string_view text) {
  const std::string_view number = withoutSign(trimmedText(text));
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  return error != std::errc::invalid_argument && end == number.data() + number.size();
}

bool isDate(std::string_view text) {
  constexpr std::string_view pattern = "dddd-dd-ddTdd:dd:ddZ";
  text = trimmedText(text);
  if (text.size() != pattern.size())
    return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (pattern[i] == 'd' ? !digit : text[i] != pattern[i])
      return false;
  }
  const auto number = [text](std::size_t at) { return (text[at] - '0') * 10 + text[at + 1] - '0'; };
  return number(5) >= 1 && number(5) <= 12 && number(8) >= 1 && number(8) <= 31 &&
         number(11) < 24 && number(14) < 60 && number(17) <= 60;
}

bool isBase64(std::string_view text) {
  std::size_t letters = 0;
  for (char c : text) {
    const bool blank = std::string_view(" \t\r\n").find(c) != std::string_view::npos;
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                        (c >= '0' && c <= '9') || c == '+' || c == '/' || c == '=';
    if (!blank && !letter)
      return false;
    letters += letter ? 1 : 0;
  }
  return letters % 4 == 0;
}

bool isControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

bool isContent(std::string_view element, std::string_view text) {
  if (element == "integer")
    return isInteger(text);
  if (element == "real")
    return isReal(text);
  if (element == "date")
    return isDate(text);
  if (element == "data")
    return isBase64(text);
  return element == "string" || element == "key" || trimmedText(text).empty();
}

// Reads token by token; each call gives the problem of a text that cannot become a property list
// any more, or nothing.
class XmlChecker {
public:
  std::string check(const XmlToken& token) {
    switch (token.kind) {
    case XmlTokenKind::open:
      return open(token.text);
    case XmlTokenKind::close:
      return close(token.text);
    case XmlTokenKind::text:
      return addText(token.text);
    case XmlTokenKind::other:
      return {};
    case XmlTokenKind::broken:
      return "is broken XML";
    }
    return {};
  }

  [[nodiscard]] std::string atEnd() const {
    if (!open_.empty())
      return "ends before its elements do";
    return rootSeen_ ? "" : "holds no value";
  }

private:
  struct Element {
    std::string_view name;
    std::size_t children = 0;
    std::string text{};
  };

  std::string open(std::string_view name) {
    if (!isElementName(name))
      return "has an element that no property list has";
    if (open_.size() > deepestPropertyList)
      return "nests too deep";
    if (std::string problem = place(name); !problem.empty())
      return problem;
    open_.push_back({name});
    return {};
  }

  // Where a new element may stand: keys and values by turns in a dictionary, one value at the top.
  std::string place(std::string_view name) {
    if (open_.empty())
      return placeAtTop(name);
    Element& parent = open_.back();
    if (!isContainer(parent.name) || name == "plist")
      return "has an element where none can be";
    const bool keyExpected = parent.name == "dict" && parent.children % 2 == 0;
    if (keyExpected != (name == "key"))
      return "has a key without a value";
    if (parent.name == "plist" && parent.children == 1)
      return "holds more than one value";
    ++parent.children;
    return {};
  }

  std::string placeAtTop(std::string_view name) {
    if (rootSeen_ || name == "key")
      return "holds more than one value";
    rootSeen_ = true;
    return {};
  }

  std::string close(std::string_view name) {
    if (open_.empty() || open_.back().name != name)
      return "closes an element that is not open";
    const Element element = std::move(open_.back());
    open_.pop_back();
    if (element.name == "dict" && element.children % 2 != 0)
      return "has a key without a value";
    if (element.name == "plist" && element.children == 0)
      return "holds no value";
    return isContent(element.name, element.text)
               ? ""
               : "has a value that is no " + std::string(element.name);
  }

  std::string addText(std::string_view text) {
    if (!open_.empty())
      open_.back().text.append(text);
    else if (!trimmedText(text).empty())
      return "has text outside its elements";
    return {};
  }

  std::vector<Element> open_;
  bool rootSeen_ = false;
};

} // namespace

std::string problemOfXmlPropertyList(std::string_view text) {
  if (!isUtf8(text))
    return "is no UTF-8 text";
  if (std::any_of(text.begin(), text.end(), isControl))
    return "holds control characters";
  XmlChecker checker;
  while (!text.empty())
    for (const XmlToken& token : nextXmlTokens(text))
      if (std::string problem = checker.check(token); !problem.empty())
        return problem;
  return checker.atEnd();
}

} // namespace tavrel
