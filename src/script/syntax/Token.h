#pragma once

#include "script/ScriptError.h"

#include <string>
#include <vector>

namespace tavrel::script {

enum class TokenKind : std::uint8_t {
  word,    ///< a keyword, a term or an identifier; in lower case
  name,    ///< an identifier between bars, in lower case: never a keyword
  text,    ///< a text literal, its escapes resolved
  integer, ///< a number without point or exponent that fits 64 bits
  real,
  symbol, ///< an operator, a bracket, a comma, a colon or the possessive "'s"
  type,   ///< the code of a class, as utf8 in «class utf8»
  lineEnd,
  end
};

struct Token {
  TokenKind kind = TokenKind::end;
  Span span;
  std::string text; ///< for all but numbers and ends
  std::int64_t integer = 0;
  double real = 0;
};

} // namespace tavrel::script
