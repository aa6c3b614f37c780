#pragma once

#include "script/values/Runtime.h"

#include <optional>

namespace tavrel::script {

/// A real of less than this magnitude becomes a 64-bit integer without overflow.
inline constexpr double integerRange = 9.2e18;

// Each of these but parseNumber throws ScriptError (`cannotCoerce`) for a value that has no such
// form.

/// The value as the class of that name (`value as type` in a script). A reference gives way to the
/// value it refers to and, for a class of single values, a list of one to its element. An alias
/// must name a file that is there (else `fileNotFound`).
[[nodiscard]] Value coerced(Runtime& runtime, const Value& value, const std::string& type);

/// The value as text. The texts of a list's elements are joined by the first of the run's
/// delimiters.
[[nodiscard]] std::string textOf(Runtime& runtime, const Value& value);

/// The number, an integer or a real, of a number, a boolean (1 or 0), a month or weekday (from 1),
/// or a text that holds one; also behind a reference, or in a list of one.
[[nodiscard]] Value numberOf(Runtime& runtime, const Value& value);

/// The same, rounded; halves to even.
[[nodiscard]] std::int64_t integerOf(Runtime& runtime, const Value& value);

/// Of a boolean, of 1 and 0, and of the texts "true" and "false".
[[nodiscard]] bool booleanOf(const Value& value);

/// The number that a text holds, blanks around it left out; nothing for any other text.
[[nodiscard]] std::optional<Value> parseNumber(std::string_view text);

} // namespace tavrel::script
