#pragma once

#include "script/running/Expression.h"

namespace tavrel::script {

/// `name of container`. `name` is a symbol; without a container the property is one of the target
/// of the enclosing tell.
[[nodiscard]] ExpressionPtr propertyExpression(const std::string* name, ExpressionPtr container);

} // namespace tavrel::script
