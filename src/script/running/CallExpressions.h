#pragma once

#include "script/running/AdditionCall.h"

namespace tavrel::script {

// Calls of handlers and commands. A null target is that of the enclosing tell, else the script
// itself. Names are symbols.

/// `name(arguments) of target`
[[nodiscard]] ExpressionPtr callExpression(const std::string* name, ExpressionPtr target,
                                           std::vector<ExpressionPtr> arguments);
/// `name of direct at x given label:y`
[[nodiscard]] ExpressionPtr labelledCallExpression(const std::string* name, ExpressionPtr target,
                                                   std::vector<LabelledExpression> arguments);

/// `continue name(arguments)`: the handler of that name that the script inherits, for the same
/// `me`.
[[nodiscard]] ExpressionPtr continueExpression(const std::string* name,
                                               std::vector<ExpressionPtr> arguments);
[[nodiscard]] ExpressionPtr labelledContinueExpression(const std::string* name,
                                                       std::vector<LabelledExpression> arguments);

/// A command of the vocabularies (syntax/Terminology.h). `addition` does it; when that is null, the
/// desktop or an application is asked.
[[nodiscard]] ExpressionPtr commandExpression(const std::string& name, ScriptingAddition addition,
                                              ExpressionPtr direct,
                                              std::vector<LabelledExpression> parameters);

} // namespace tavrel::script
