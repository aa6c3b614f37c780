#pragma once

#include "script/values/Runtime.h"

namespace tavrel::script {

/// What an operator of the language makes of two values. Each throws ScriptError for values that
/// it cannot take (`cannotCoerce`), a division by zero (`dividedByZero`) and too large a number.
using Operator = Value (*)(Runtime&, const Value&, const Value&);

/// The operator of that name, as it stands in the syntax tree; null when there is none.
/// `and` and `or` are not among them: they do not always look at their right side.
[[nodiscard]] Operator operatorNamed(std::string_view name);

[[nodiscard]] Value sum(Runtime& runtime, const Value& a, const Value& b);
[[nodiscard]] Value difference(Runtime& runtime, const Value& a, const Value& b);
[[nodiscard]] Value joinedValues(Runtime& runtime, const Value& a, const Value& b);
[[nodiscard]] Value negated(Runtime& runtime, const Value& value);

/// -1, 0 or 1. Throws when the two cannot be ordered.
[[nodiscard]] int order(Runtime& runtime, const Value& a, const Value& b);
[[nodiscard]] bool areEqual(Runtime& runtime, const Value& a, const Value& b);
[[nodiscard]] bool contains(Runtime& runtime, const Value& whole, const Value& part);

/// The text as comparisons see it: folded as the run's considerations say.
[[nodiscard]] std::u32string comparable(const Runtime& runtime, std::string_view text);

} // namespace tavrel::script
