#include "script/storage/StoredValues.h"

#include "base/Utf8.h"

namespace tavrel::script {
namespace {

constexpr int deepestStored = 100;
constexpr const char* classKey = "class";
constexpr const char* valueKey = "value";
constexpr const char* labelsKey = "labels";

// In bytes, far above what properties need: a small list may hold another many times, and a file
// cannot share.
constexpr std::size_t largest = std::size_t{32} << 20U;
constexpr std::size_t containerSize = 128; ///< of a list or record, beside its elements

/// How deep a value is nested, and how many bytes may still be written.
struct Budget {
  int depth = 0;
  std::size_t& bytes;

  [[nodiscard]] bool take(std::size_t count) const {
    const bool fits = count <= bytes;
    bytes -= fits ? count : bytes;
    return fits;
  }
  [[nodiscard]] Budget inside() const { return {depth + 1, bytes}; }
};

std::optional<PropertyList> stored(const Value& value, Budget budget);

std::optional<PropertyList> storedList(const std::vector<Value>& values, Budget budget) {
  PropertyList::Array result;
  for (const Value& each : values) {
    auto element = stored(each, budget.inside());
    if (!element)
      return std::nullopt;
    result.push_back(*std::move(element));
  }
  return PropertyList(std::move(result));
}

PropertyList ofClass(const char* name, PropertyList value) {
  return PropertyList::Dictionary{{classKey, name}, {valueKey, std::move(value)}};
}

std::optional<PropertyList> storedRecord(const Record& record, Budget budget) {
  PropertyList::Array labels;
  std::vector<Value> values;
  for (const auto& [label, value] : record.entries()) {
    labels.emplace_back(*label);
    values.push_back(value);
  }
  auto list = storedList(values, budget);
  if (!list)
    return std::nullopt;
  return PropertyList::Dictionary{
      {classKey, "record"}, {labelsKey, std::move(labels)}, {valueKey, *std::move(list)}};
}

std::optional<PropertyList> stored(const Value& value, Budget budget) {
  const auto* text = value.as<Text>();
  const bool isContainer = value.is(ValueKind::list) || value.is(ValueKind::record);
  const std::size_t more = text ? text->value().size() : isContainer ? containerSize : 0;
  if (budget.depth > deepestStored || !budget.take(sizeof(PropertyList) + more))
    return std::nullopt;
  switch (value.kind()) {
  case ValueKind::missing:
    return PropertyList::Dictionary{{classKey, "missing value"}};
  case ValueKind::boolean:
    return PropertyList(value.boolean());
  case ValueKind::integer:
    return PropertyList(value.integer());
  case ValueKind::real:
    return PropertyList(value.real());
  case ValueKind::constant:
    return ofClass("constant", value.name());
  case ValueKind::typeName:
    return ofClass("class", value.name());
  case ValueKind::text:
    return PropertyList(text->value());
  case ValueKind::list:
    return storedList(value.as<List>()->values(), budget);
  case ValueKind::record:
    return storedRecord(*value.as<Record>(), budget);
  case ValueKind::date:
    return PropertyList(PropertyList::Date{value.as<Date>()->seconds});
  case ValueKind::file:
    return ofClass(value.as<File>()->isAlias ? "alias" : "file", value.as<File>()->path);
  default:
    return std::nullopt;
  }
}

std::optional<Value> restored(Runtime& runtime, const PropertyList& from, int depth);

std::optional<std::vector<Value>> restoredList(Runtime& runtime, const PropertyList::Array& array,
                                               int depth) {
  std::vector<Value> values;
  for (const PropertyList& each : array) {
    auto value = restored(runtime, each, depth + 1);
    if (!value)
      return std::nullopt;
    values.push_back(*std::move(value));
  }
  return values;
}

std::optional<Value> restoredRecord(Runtime& runtime, const PropertyList& from, int depth) {
  const auto* labels = from.arrayFor(labelsKey);
  const auto* array = from.arrayFor(valueKey);
  auto values = labels && array ? restoredList(runtime, *array, depth) : std::nullopt;
  if (!values || labels->size() != values->size())
    return std::nullopt;
  std::vector<Record::Entry> entries;
  for (std::size_t i = 0; i < values->size(); ++i) {
    const std::string* label = (*labels)[i].string();
    if (!label)
      return std::nullopt;
    entries.emplace_back(symbol(*label), (*values)[i]);
  }
  return runtime.record(std::move(entries));
}

std::optional<Value> restoredOfClass(Runtime& runtime, const PropertyList& from, int depth) {
  const std::string* name = from.stringFor(classKey);
  const std::string* value = from.stringFor(valueKey);
  if (name && *name == "missing value")
    return Value::missing();
  if (name && *name == "record")
    return restoredRecord(runtime, from, depth);
  if (!name || !value)
    return std::nullopt;
  if (*name == "constant")
    return Value::constant(*value);
  if (*name == "class")
    return Value::typeName(*value);
  if (*name == "file" || *name == "alias")
    return Value(Ref(new File(*value, *name == "alias")));
  return std::nullopt;
}

std::optional<Value> restored(Runtime& runtime, const PropertyList& from, int depth) {
  if (depth > deepestStored)
    return std::nullopt;
  if (const auto flag = from.boolean())
    return Value::boolean(*flag);
  if (const auto number = from.integer())
    return Value::integer(*number);
  if (const auto number = from.real())
    return Value::real(*number);
  if (const auto date = from.date())
    return runtime.date(date->seconds);
  if (const std::string* text = from.string())
    return isUtf8(*text) ? std::optional(runtime.text(*text)) : std::nullopt;
  const auto* array = from.array();
  if (!array)
    return restoredOfClass(runtime, from, depth);
  auto values = restoredList(runtime, *array, depth);
  return values ? std::optional(runtime.list(*std::move(values))) : std::nullopt;
}

} // namespace

std::optional<PropertyList> storedValue(const Value& value) {
  std::size_t bytes = largest;
  return stored(value, {0, bytes});
}

std::optional<Value> restoredValue(Runtime& runtime, const PropertyList& from) {
  return restored(runtime, from, 0);
}

} // namespace tavrel::script
