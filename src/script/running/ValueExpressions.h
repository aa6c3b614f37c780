#pragma once

#include "script/running/ScriptDefinition.h"

namespace tavrel::script {

// Expressions that make a value of their own.

[[nodiscard]] ExpressionPtr constantExpression(Value value);
[[nodiscard]] ExpressionPtr listExpression(std::vector<ExpressionPtr> elements);
[[nodiscard]] ExpressionPtr recordExpression(std::vector<LabelledExpression> entries);
/// `date "..."`: the date that the text tells.
[[nodiscard]] ExpressionPtr dateExpression(ExpressionPtr text);
/// `POSIX file "..."` or `alias "..."`; `type` is which of the two, in lower case.
[[nodiscard]] ExpressionPtr fileExpression(std::string type, ExpressionPtr path);
[[nodiscard]] ExpressionPtr applicationExpression(ExpressionPtr name);
/// A new script object each time, inside the script that runs.
[[nodiscard]] ExpressionPtr newScriptExpression(std::shared_ptr<const ScriptDefinition> definition);
/// `a reference to` the target.
[[nodiscard]] ExpressionPtr referenceExpression(ExpressionPtr target);

} // namespace tavrel::script
