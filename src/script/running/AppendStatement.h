#pragma once

#include "script/running/Statement.h"

namespace tavrel::script {

/// `set x to x & a & b`. A text or list x that nobody else holds grows in place instead of being
/// copied, so that a loop of appends takes linear time. The operands a and b must not change x:
/// they are evaluated before it is looked at.
[[nodiscard]] StatementPtr appendStatement(ExpressionPtr target,
                                           std::vector<ExpressionPtr> operands);

} // namespace tavrel::script
