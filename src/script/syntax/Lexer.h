#pragma once

#include "script/syntax/Token.h"

#include <string_view>

namespace tavrel::script {

/// The tokens of a source in UTF-8, the last one of kind `end`. Comments are left out, and so is
/// the rest of a line behind a continuation sign (¬). Throws ScriptError (`syntax`) with the span
/// of what is no token.
[[nodiscard]] std::vector<Token> tokenize(std::string_view source);

} // namespace tavrel::script
