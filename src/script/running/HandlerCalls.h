#pragma once

#include "script/running/Expression.h"

namespace tavrel::script {

/// A handler and the script that defines it.
struct Found {
  const Handler* handler = nullptr;
  ScriptObject* owner = nullptr;
};

/// The handler of that name in the script or the next ancestor that has one.
[[nodiscard]] Found findHandler(ScriptObject& script, const std::string* name);

/// Runs a handler for `me`. Values beyond the parameters are an error (`missingParameter`), as
/// are too few.
[[nodiscard]] Value callHandler(Runtime& runtime, const Found& found, const Value& me,
                                std::vector<Value> arguments);

/// The same with labelled values.
struct LabelledValue {
  const std::string* label = nullptr;
  Value value;
};
[[nodiscard]] Value callLabelled(Runtime& runtime, const Found& found, const Value& me,
                                 const std::vector<LabelledValue>& arguments);

/// A new instance of a script with its initial values. A handler that makes one hands its frame
/// over: the values may name its variables.
[[nodiscard]] Ref<ScriptObject> instantiate(Runtime& runtime,
                                            const std::shared_ptr<const Shape>& shape,
                                            Ref<ScriptObject> outer, Frame* creator = nullptr);

/// Runs the script's `run` handler; nothing when it has none.
[[nodiscard]] Value runScript(Runtime& runtime, ScriptObject& script, std::vector<Value> arguments);

/// What an application or the desktop answers. Throws its error.
[[nodiscard]] Value performEvent(Runtime& runtime, const HostEvent& event);

} // namespace tavrel::script
