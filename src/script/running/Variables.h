#pragma once

#include "script/running/Expression.h"

namespace tavrel::script {

// Variables and other names. `slot` is the index of a variable in its frame, `name` a symbol for
// the error of a variable that has no value yet.

/// A variable of the handler.
[[nodiscard]] ExpressionPtr localVariable(std::size_t slot, const std::string* name);
/// A variable of the handler that makes the script, in the initial value of a property.
[[nodiscard]] ExpressionPtr creatorVariable(std::size_t slot, const std::string* name);
/// What such a variable holds when the script is made; undefined where it has no value yet.
[[nodiscard]] ExpressionPtr capturedValue(std::size_t slot);
/// A property or global variable. `outward` counts the scripts from the one that runs outward to
/// the one whose field it is; `index` is that field.
[[nodiscard]] ExpressionPtr fieldVariable(std::size_t outward, std::size_t index,
                                          const std::string* name);
/// A name that nothing declares: a property of the target of the enclosing tell, or an error.
[[nodiscard]] ExpressionPtr undeclaredName(const std::string* name);

[[nodiscard]] ExpressionPtr meExpression();
[[nodiscard]] ExpressionPtr itExpression();
/// `result`: of the statement before.
[[nodiscard]] ExpressionPtr resultExpression();

/// `{a, b}` on the left of an assignment; each target takes an element of the list.
[[nodiscard]] ExpressionPtr patternExpression(std::vector<ExpressionPtr> targets);

} // namespace tavrel::script
