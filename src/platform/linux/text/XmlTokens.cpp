#include "platform/linux/text/XmlTokens.h"

#include <charconv>
#include <cstdint>

namespace tavrel {

namespace {

using Tokens = std::vector<XmlToken>;

constexpr XmlToken broken{XmlTokenKind::broken};

// Takes what stands before the end mark, and the mark; broken when the mark is missing.
XmlToken upTo(std::string_view& text, std::string_view start, std::string_view end,
              XmlTokenKind kind) {
  text.remove_prefix(start.size());
  const std::size_t at = text.find(end);
  if (at == std::string_view::npos) {
    text = {};
    return broken;
  }
  const XmlToken token{kind, text.substr(0, at)};
  text.remove_prefix(at + end.size());
  return token;
}

// A document type that declares anything could make entities of any size.
XmlToken documentType(std::string_view& text) {
  const XmlToken token = upTo(text, "<!", ">", XmlTokenKind::other);
  const bool plain =
      token.text.starts_with("DOCTYPE") && token.text.find_first_of("[<") == std::string_view::npos;
  return plain ? token : broken;
}

Tokens tag(std::string_view& text) {
  XmlToken token = upTo(text, "<", ">", XmlTokenKind::open);
  if (token.kind == XmlTokenKind::broken || token.text.find('<') != std::string_view::npos)
    return {broken};
  const bool closes = token.text.starts_with('/');
  const bool empty = token.text.ends_with('/');
  if (closes)
    token.text.remove_prefix(1);
  const std::string_view name = token.text.substr(0, token.text.find_first_of(" \t\r\n/"));
  if (closes)
    return {{XmlTokenKind::close, name}};
  if (empty)
    return {{XmlTokenKind::open, name}, {XmlTokenKind::close, name}};
  return {{XmlTokenKind::open, name}};
}

// "&#NUMBER;" or "&#xNUMBER;" of a character that XML can hold.
bool isCharacterReference(std::string_view text) {
  if (!text.starts_with("&#"))
    return false;
  text = text.substr(2, text.find(';') - 2);
  const bool hexadecimal = text.starts_with('x');
  text.remove_prefix(hexadecimal ? 1 : 0);
  std::uint32_t value = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), value, hexadecimal ? 16 : 10);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  const bool blank = value == '\t' || value == '\n' || value == '\r';
  return whole && (value >= 0x20 || blank) && value <= 0x10FFFF &&
         (value < 0xD800 || value > 0xDFFF);
}

bool isEntity(std::string_view text) {
  for (std::string_view known : {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"})
    if (text.starts_with(known))
      return true;
  return isCharacterReference(text);
}

Tokens characters(std::string_view& text) {
  const std::string_view run = text.substr(0, text.find('<'));
  text.remove_prefix(run.size());
  for (std::size_t at = run.find('&'); at != std::string_view::npos; at = run.find('&', at + 1))
    if (!isEntity(run.substr(at)))
      return {broken};
  return {{XmlTokenKind::text, run}};
}

} // namespace

std::vector<XmlToken> nextXmlTokens(std::string_view& text) {
  if (!text.starts_with('<'))
    return characters(text);
  if (text.starts_with("<!--"))
    return {upTo(text, "<!--", "-->", XmlTokenKind::other)};
  if (text.starts_with("<![CDATA["))
    return {upTo(text, "<![CDATA[", "]]>", XmlTokenKind::text)};
  if (text.starts_with("<!"))
    return {documentType(text)};
  if (text.starts_with("<?"))
    return {upTo(text, "<?", "?>", XmlTokenKind::other)};
  return tag(text);
}

} // namespace tavrel
