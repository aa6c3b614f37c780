#pragma once

#include "script/values/Value.h"

namespace tavrel::script {

/// The name of the value's class, as "integer" or "text".
[[nodiscard]] std::string typeOf(const Value& value);

/// The value as a script would write it: texts in quotation marks, lists in braces. Values inside
/// more than 20 others, and what goes beyond 4096 bytes, are shown as "…".
[[nodiscard]] std::string described(const Value& value);

/// The shortest text that reads as the same real. Numbers of 10000 and more, and those below
/// 0.001, are written with an exponent, as the language does: "1.0E+4".
[[nodiscard]] std::string realText(double value);

} // namespace tavrel::script
