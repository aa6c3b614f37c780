#pragma once

#include "script/values/Runtime.h"

namespace tavrel::script {

// Numbers and what stands for one (numberOf in Coercion.h), reckoned together. Integers stay
// integers until they outgrow 64 bits; then they become reals. Each throws ScriptError for values
// that are no numbers (`cannotCoerce`) and for results beyond all reals (`numberTooLarge`), and
// those that divide, for a right side of 0 (`dividedByZero`).

/// To a date seconds may be added.
[[nodiscard]] Value sum(Runtime& runtime, const Value& a, const Value& b);
/// From a date seconds may be taken, or an earlier date, which leaves the seconds between the two.
[[nodiscard]] Value difference(Runtime& runtime, const Value& a, const Value& b);
[[nodiscard]] Value product(Runtime& runtime, const Value& a, const Value& b);
/// Always a real.
[[nodiscard]] Value quotient(Runtime& runtime, const Value& a, const Value& b);
/// Rounded toward zero.
[[nodiscard]] Value wholeQuotient(Runtime& runtime, const Value& a, const Value& b);
/// With the sign of the left side.
[[nodiscard]] Value remainderOf(Runtime& runtime, const Value& a, const Value& b);
/// Always a real.
[[nodiscard]] Value power(Runtime& runtime, const Value& a, const Value& b);
[[nodiscard]] Value negated(Runtime& runtime, const Value& value);

} // namespace tavrel::script
