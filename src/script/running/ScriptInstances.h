#pragma once

#include "script/running/ScriptDefinition.h"

namespace tavrel::script {

/// A new object of a script with its initial values. A handler that makes one hands its frame over
/// as `creator`: the values may name its variables.
[[nodiscard]] Ref<ScriptObject>
instantiate(Runtime& runtime, const std::shared_ptr<const ScriptDefinition>& definition,
            Ref<ScriptObject> outer, Frame* creator = nullptr);

/// Runs the script's `run` handler; undefined when it has none. Arguments beyond its parameters are
/// left out, and those that are missing are empty lists.
[[nodiscard]] Value runScript(Runtime& runtime, ScriptObject& script, std::vector<Value> arguments);

} // namespace tavrel::script
