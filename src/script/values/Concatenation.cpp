#include "script/values/Concatenation.h"

#include "script/values/Coercion.h"

namespace tavrel::script {
namespace {

Value joinedTexts(Runtime& runtime, const Value& a, const Value& b) {
  std::string text = textOf(runtime, a);
  text += textOf(runtime, b);
  runtime.step(text.size() / 64);
  return runtime.text(std::move(text));
}

Value joinedLists(Runtime& runtime, const Value& a, const Value& b) {
  std::vector<Value> values = coerced(runtime, a, "list").as<List>()->values();
  const Value right = coerced(runtime, b, "list");
  const std::vector<Value>& more = right.as<List>()->values();
  runtime.step((values.size() + more.size()) / 16);
  values.insert(values.end(), more.begin(), more.end());
  return runtime.list(std::move(values));
}

// An entry of the left record replaces that of the right one.
Value joinedRecords(Runtime& runtime, const Record& a, const Record& b) {
  std::vector<Record::Entry> entries = b.entries();
  const Value result = runtime.record(std::move(entries));
  for (const auto& [label, value] : a.entries())
    result.as<Record>()->set(label, value);
  return result;
}

} // namespace

Value concatenated(Runtime& runtime, const Value& a, const Value& b) {
  if (a.is(ValueKind::text) && !b.is(ValueKind::record))
    return joinedTexts(runtime, a, b);
  if (a.is(ValueKind::record) && b.is(ValueKind::record))
    return joinedRecords(runtime, *a.as<Record>(), *b.as<Record>());
  return joinedLists(runtime, a, b);
}

} // namespace tavrel::script
