#include "script/values/DeepCopy.h"

#include "script/values/ScriptObject.h"

namespace tavrel::script {
namespace {

Value copiedScript(Runtime& runtime, const ScriptObject& script) {
  const Ref<ScriptObject> copy(new ScriptObject(runtime.heap, script));
  for (std::size_t i = 0; i < script.fields.size(); ++i) {
    const Value& field = script.fields[i];
    copy->fields[i] = field.is(ValueKind::script) ? field : deepCopy(runtime, field);
  }
  return Value(copy);
}

} // namespace

Value deepCopy(Runtime& runtime, const Value& value) {
  runtime.guardStack();
  runtime.step();
  if (const auto* date = value.as<Date>())
    return runtime.date(date->seconds);
  if (const auto* list = value.as<List>()) {
    std::vector<Value> values;
    for (const Value& each : list->values())
      values.push_back(deepCopy(runtime, each));
    return runtime.list(std::move(values));
  }
  if (const auto* script = value.as<ScriptObject>())
    return copiedScript(runtime, *script);
  const auto* record = value.as<Record>();
  if (!record)
    return value;
  std::vector<Record::Entry> entries;
  for (const auto& [label, each] : record->entries())
    entries.emplace_back(label, deepCopy(runtime, each));
  return runtime.record(std::move(entries));
}

} // namespace tavrel::script
