#pragma once

#include "script/running/Expression.h"

namespace tavrel::script {

/// `name` is that of the syntax tree: `and`, `or`, or one of operatorNamed. Throws ScriptError
/// (`corruptScript`) for any other.
[[nodiscard]] ExpressionPtr operatorExpression(std::string_view name, ExpressionPtr left,
                                               ExpressionPtr right);
[[nodiscard]] ExpressionPtr negationExpression(ExpressionPtr operand);
[[nodiscard]] ExpressionPtr notExpression(ExpressionPtr operand);
/// `value as type`
[[nodiscard]] ExpressionPtr castExpression(ExpressionPtr value, ExpressionPtr type);

} // namespace tavrel::script
