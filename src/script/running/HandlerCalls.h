#pragma once

#include "script/running/ScriptDefinition.h"

namespace tavrel::script {

/// A handler and the script that defines it; both null when there is none.
struct FoundHandler {
  const Handler* handler = nullptr;
  ScriptObject* owner = nullptr;
};

/// The handler of that name in the script or the nearest ancestor that has one.
[[nodiscard]] FoundHandler findHandler(ScriptObject& script, const std::string* name);

/// Runs a handler that was found, with `me` as the script that was called. Throws ScriptError
/// (`wrongArguments`) unless there is one argument for each parameter.
[[nodiscard]] Value callHandler(Runtime& runtime, const FoundHandler& found, const Value& me,
                                std::vector<Value> arguments);

/// An argument and its label, a symbol.
struct LabelledValue {
  const std::string* label = nullptr;
  Value value;
};

/// The same by labels, in any order; those that no parameter has are left out. Throws ScriptError
/// (`missingArgument`) for a parameter without an argument.
[[nodiscard]] Value callLabelled(Runtime& runtime, const FoundHandler& found, const Value& me,
                                 const std::vector<LabelledValue>& arguments);

} // namespace tavrel::script
