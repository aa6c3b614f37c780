#pragma once

#include "script/ScriptError.h"

#include <string>
#include <vector>

namespace tavrel::script {

enum class TokenKind : std::uint8_t {
  word,    ///< a keyword, a term or an identifier
  name,    ///< an identifier between bars: never a keyword
  text,    ///< a text literal, unescaped
  integer, ///< a number without point or exponent that fits 64 bits
  real,
  symbol, ///< an operator or a bracket; the possessive is "'s"
  type,   ///< a class code between guillemets
  lineEnd,
  end
};

struct Token {
  TokenKind kind = TokenKind::end;
  Span span;
  std::string text; ///< words in lower case
  std::int64_t integer = 0;
  double real = 0;
};

} // namespace tavrel::script
