#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

enum class XmlTokenKind {
  open,   ///< an element's start; `text` is its name
  close,  ///< an element's end; `text` is its name
  text,   ///< characters, escapes as they stand
  other,  ///< declaration, document type without declarations of its own, comment
  broken, ///< no XML, or a document type that declares entities
};

struct XmlToken {
  XmlTokenKind kind = XmlTokenKind::other;
  std::string_view text{};
};

/// Takes the next token off the front of a text that is not empty. An element that opens and
/// closes in one tag is two tokens.
[[nodiscard]] std::vector<XmlToken> nextXmlTokens(std::string_view& text);

} // namespace tavrel
