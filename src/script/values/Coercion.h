#pragma once

#include "script/values/Runtime.h"

#include <optional>

namespace tavrel::script {

/// A real of less than this magnitude becomes a 64-bit integer without overflow.
inline constexpr double integerRange = 9.2e18;

/// The value as the class of that name. Throws ScriptError (`cannotCoerce`).
[[nodiscard]] Value coerced(Runtime& runtime, const Value& value, const std::string& type);

/// The value as text, numbers, dates, lists and files included. Throws (`cannotCoerce`).
[[nodiscard]] std::string textOf(Runtime& runtime, const Value& value);

/// The number of a number or of a text that holds one. Throws (`cannotCoerce`).
[[nodiscard]] Value numberOf(Runtime& runtime, const Value& value);
[[nodiscard]] std::int64_t integerOf(Runtime& runtime, const Value& value);
[[nodiscard]] bool booleanOf(Runtime& runtime, const Value& value);

/// A number that is written in a text, with blanks around it; nothing when it is none.
[[nodiscard]] std::optional<Value> numberIn(std::string_view text);

/// The name of the value's class.
[[nodiscard]] std::string typeOf(const Value& value);

/// The value as a script would write it: texts in quotation marks, lists in braces. What nests
/// deeper than is of use, and what is longer, ends in "…".
[[nodiscard]] std::string described(const Value& value);

/// The shortest text that reads as the same number; 10000 and more and less than 0.001 with an
/// exponent, as the language writes reals.
[[nodiscard]] std::string realText(double value);

} // namespace tavrel::script
