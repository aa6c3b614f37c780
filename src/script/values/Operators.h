#pragma once

#include "script/values/Runtime.h"

namespace tavrel::script {

/// What an operator of the language makes of two values. Each throws ScriptError for values that
/// it cannot take (`cannotCoerce`) and as the functions of Arithmetic.h do.
using Operator = Value (*)(Runtime&, const Value&, const Value&);

/// The operator of that name, as it stands in the syntax tree ("+", "≤", "is in"); null when there
/// is none. `and` and `or` are not among them: they do not always look at their right side.
[[nodiscard]] Operator operatorNamed(std::string_view name);

} // namespace tavrel::script
