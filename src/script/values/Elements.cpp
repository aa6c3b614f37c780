#include "script/values/Elements.h"

#include "script/values/AccessErrors.h"
#include "script/values/Coercion.h"
#include "script/values/Description.h"
#include "script/values/TextSplitting.h"

#include <algorithm>

namespace tavrel::script {
namespace {

std::string titleOf(const std::string& type, std::int64_t index) {
  return type + " " + std::to_string(index);
}

bool isOfType(const Value& value, const std::string& type) {
  if (type == "item")
    return true;
  if (type == "number")
    return value.isNumber();
  return typeOf(value) == (type == "string" || type == "unicode text" ? "text" : type);
}

Value textAt(Runtime& runtime, const std::string& text, const TextRange& each) {
  return runtime.text(text.substr(each.start, each.length));
}

bool isCharacter(const std::string& type) {
  return type == "character" || type == "item";
}

Value characterAt(Runtime& runtime, const Text& text, std::size_t position) {
  const std::size_t start = text.offsetOf(position);
  return textAt(runtime, text.value(), {start, text.offsetOf(position + 1) - start});
}

TextRanges rangesOrError(Runtime& runtime, const Value& whole, const std::string& type) {
  auto ranges = splitText(runtime, whole.as<Text>()->value(), type);
  if (!ranges)
    cannotGet("every " + type, whole);
  return *std::move(ranges);
}

// The elements of a list that are of the class; all are of the class `item`.
std::vector<Value> valuesOf(Runtime& runtime, const Value& whole, const std::string& type) {
  const auto* list = whole.as<List>();
  if (!list)
    cannotGet("every " + type, whole);
  runtime.step(list->size() / 16);
  std::vector<Value> result;
  std::copy_if(list->values().begin(), list->values().end(), std::back_inserter(result),
               [&](const Value& value) { return isOfType(value, type); });
  return result;
}

std::optional<Value> findElement(Runtime& runtime, const Value& whole, const std::string& type,
                                 std::int64_t index) {
  if (const auto* list = whole.as<List>(); list && type == "item") {
    const auto position = positionOf(index, list->size());
    return position ? std::optional(list->values()[*position]) : std::nullopt;
  }
  const auto* text = whole.as<Text>();
  if (text && isCharacter(type)) {
    const auto position = positionOf(index, text->length());
    return position ? std::optional(characterAt(runtime, *text, *position)) : std::nullopt;
  }
  if (text) {
    const TextRanges ranges = rangesOrError(runtime, whole, type);
    const auto position = positionOf(index, ranges.size());
    return position ? std::optional(textAt(runtime, text->value(), ranges[*position]))
                    : std::nullopt;
  }
  const std::vector<Value> values = valuesOf(runtime, whole, type);
  const auto position = positionOf(index, values.size());
  return position ? std::optional(values[*position]) : std::nullopt;
}

// The bytes from the start of one range to the end of the other, in either order.
TextRange enclosingRange(const TextRange& first, const TextRange& last) {
  const std::size_t start = std::min(first.start, last.start);
  const std::size_t end = std::max(first.start + first.length, last.start + last.length);
  return {start, end - start};
}

TextRange boundOf(Runtime& runtime, const Value& whole, const Bound& bound) {
  const TextRanges ranges = rangesOrError(runtime, whole, bound.type);
  const auto position = positionOf(bound.index, ranges.size());
  if (!position)
    cannotGet(titleOf(bound.type, bound.index), whole);
  return ranges[*position];
}

Value textBetween(Runtime& runtime, const Value& whole, const Bound& first, const Bound& last) {
  const TextRange range =
      enclosingRange(boundOf(runtime, whole, first), boundOf(runtime, whole, last));
  return textAt(runtime, whole.as<Text>()->value(), range);
}

} // namespace

std::optional<std::size_t> positionOf(std::int64_t index, std::size_t count) {
  const auto size = static_cast<std::int64_t>(count);
  const std::int64_t position = index < 0 ? size + index : index - 1;
  if (index == 0 || position < 0 || position >= size)
    return std::nullopt;
  return static_cast<std::size_t>(position);
}

Value elementAt(Runtime& runtime, const Value& whole, const std::string& type, std::int64_t index) {
  if (auto element = findElement(runtime, whole, type, index))
    return *std::move(element);
  cannotGet(titleOf(type, index), whole);
}

Value elementsBetween(Runtime& runtime, const Value& whole, const std::string& type,
                      const Bound& first, const Bound& last) {
  if (whole.is(ValueKind::text) && type == "text")
    return textBetween(runtime, whole, first, last);
  const Value all = everyElement(runtime, whole, type);
  const std::vector<Value>& values = all.as<List>()->values();
  const auto from = positionOf(first.index, values.size());
  const auto to = positionOf(last.index, values.size());
  if (!from || !to)
    cannotGet(type + "s " + std::to_string(first.index) + " thru " + std::to_string(last.index),
              whole);
  const auto start = values.begin() + static_cast<std::ptrdiff_t>(std::min(*from, *to));
  const auto end = values.begin() + static_cast<std::ptrdiff_t>(std::max(*from, *to) + 1);
  return runtime.list({start, end});
}

Value everyElement(Runtime& runtime, const Value& whole, const std::string& type) {
  const auto* text = whole.as<Text>();
  if (!text)
    return runtime.list(valuesOf(runtime, whole, type));
  if (type == "text")
    return whole;
  std::vector<Value> values;
  for (const TextRange& each : rangesOrError(runtime, whole, type)) {
    runtime.step();
    values.push_back(textAt(runtime, text->value(), each));
  }
  return runtime.list(std::move(values));
}

Value elementOf(Runtime& runtime, const Value& whole, const std::string& type, const Value& key) {
  if (key.isNumber())
    return elementAt(runtime, whole, type, integerOf(runtime, key));
  // `file "/a/b"` names a file wherever it stands; other elements have no names.
  if (type != "file" && type != "folder" && type != "disk")
    cannotGet(type + " " + described(key), whole);
  return coerced(runtime, key, "file");
}

void setElement(Runtime& runtime, const Value& whole, const std::string& type, const Value& key,
                Value value) {
  auto* list = whole.as<List>();
  const auto position =
      list ? positionOf(integerOf(runtime, key), list->size()) : std::optional<std::size_t>();
  if (!position || type != "item")
    cannotSet(type + " " + described(key), whole);
  list->replace(*position, std::move(value));
}

std::int64_t countElements(Runtime& runtime, const Value& whole, const std::string& type) {
  if (const auto* record = whole.as<Record>(); record && type == "item")
    return static_cast<std::int64_t>(record->entries().size());
  if (const auto* text = whole.as<Text>(); text && isCharacter(type))
    return static_cast<std::int64_t>(text->length());
  if (whole.is(ValueKind::text))
    return static_cast<std::int64_t>(rangesOrError(runtime, whole, type).size());
  return static_cast<std::int64_t>(valuesOf(runtime, whole, type).size());
}

} // namespace tavrel::script
