#include "script/running/ScriptInstances.h"

#include "script/running/HandlerCalls.h"

#include <algorithm>

namespace tavrel::script {

Ref<ScriptObject> instantiate(Runtime& runtime,
                              const std::shared_ptr<const ScriptDefinition>& definition,
                              Ref<ScriptObject> outer, Frame* creator) {
  runtime.guardStack();
  Ref script(new ScriptObject(runtime.heap, definition, *definition, std::move(outer)));
  Frame frame(runtime, *script, definition->localCount);
  frame.me = Value(script);
  frame.creator = creator;
  // A property named `parent` is whom the script inherits from.
  const std::string* parent = symbol("parent");
  for (std::size_t i = 0; i < definition->initialValues.size(); ++i) {
    if (!definition->initialValues[i])
      continue;
    script->fields[i] = definition->initialValues[i]->evaluate(frame);
    if (definition->fields[i] == parent && script->fields[i].is(ValueKind::script))
      script->parent = script->fields[i];
  }
  return script;
}

Value runScript(Runtime& runtime, ScriptObject& script, std::vector<Value> arguments) {
  const Handler* handler = script.definition().handler(symbol("run"));
  if (!handler)
    return {};
  arguments.resize(std::min(arguments.size(), handler->parameters.size()));
  if (arguments.size() < handler->parameters.size())
    arguments.resize(handler->parameters.size(), runtime.list({}));
  return callHandler(runtime, {handler, &script}, Value(&script), std::move(arguments));
}

} // namespace tavrel::script
