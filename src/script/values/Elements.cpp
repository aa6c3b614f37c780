#include "script/values/Elements.h"

#include "script/values/Coercion.h"
#include "script/values/TextSplitting.h"

#include <algorithm>

namespace tavrel::script {
namespace {

[[noreturn]] void missing(const Value& whole, const std::string& what, int number) {
  std::string message = "Can’t get ";
  message.append(what).append(" of ").append(described(whole)).append(".");
  throw ScriptError{number, std::move(message)};
}

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

Value part(Runtime& runtime, const std::string& text, const TextPart& each) {
  return runtime.text(text.substr(each.start, each.length));
}

bool isCharacter(const std::string& type) {
  return type == "character" || type == "item";
}

Value characterAt(Runtime& runtime, const Text& text, std::size_t place) {
  const std::size_t start = text.offsetOf(place);
  return part(runtime, text.value(), {start, text.offsetOf(place + 1) - start});
}

TextParts partsOrError(Runtime& runtime, const Value& whole, const std::string& type) {
  auto parts = partsOf(runtime, whole.as<Text>()->value(), type);
  if (!parts)
    missing(whole, "every " + type, errors::noSuchObject);
  return *std::move(parts);
}

// The values of a list that are of the class; of `item` all.
std::vector<Value> valuesOf(Runtime& runtime, const Value& whole, const std::string& type) {
  const auto* list = whole.as<List>();
  if (!list)
    missing(whole, "every " + type, errors::noSuchObject);
  runtime.step(list->size() / 16);
  std::vector<Value> result;
  std::copy_if(list->values().begin(), list->values().end(), std::back_inserter(result),
               [&](const Value& value) { return isOfType(value, type); });
  return result;
}

std::optional<Value> simpleElement(Runtime& runtime, const Value& whole, const std::string& type,
                                   std::int64_t index) {
  if (const auto* list = whole.as<List>(); list && type == "item") {
    const auto place = placeOf(index, list->size());
    return place ? std::optional(list->values()[*place]) : std::nullopt;
  }
  const auto* text = whole.as<Text>();
  if (text && isCharacter(type)) {
    const auto place = placeOf(index, text->length());
    return place ? std::optional(characterAt(runtime, *text, *place)) : std::nullopt;
  }
  if (text) {
    const TextParts parts = partsOrError(runtime, whole, type);
    const auto place = placeOf(index, parts.size());
    return place ? std::optional(part(runtime, text->value(), parts[*place])) : std::nullopt;
  }
  const std::vector<Value> values = valuesOf(runtime, whole, type);
  const auto place = placeOf(index, values.size());
  return place ? std::optional(values[*place]) : std::nullopt;
}

// The bytes from the start of the first part to the end of the last.
TextPart span(const TextPart& first, const TextPart& last) {
  const std::size_t start = std::min(first.start, last.start);
  const std::size_t end = std::max(first.start + first.length, last.start + last.length);
  return {start, end - start};
}

TextPart boundOf(Runtime& runtime, const Value& whole, const Bound& bound) {
  const TextParts parts = partsOrError(runtime, whole, bound.type);
  const auto place = placeOf(bound.index, parts.size());
  if (!place)
    missing(whole, titleOf(bound.type, bound.index), errors::noSuchObject);
  return parts[*place];
}

Value textBetween(Runtime& runtime, const Value& whole, const Bound& first, const Bound& last) {
  const TextPart range = span(boundOf(runtime, whole, first), boundOf(runtime, whole, last));
  return part(runtime, whole.as<Text>()->value(), range);
}

} // namespace

std::optional<std::size_t> placeOf(std::int64_t index, std::size_t count) {
  const auto size = static_cast<std::int64_t>(count);
  const std::int64_t place = index < 0 ? size + index : index - 1;
  if (index == 0 || place < 0 || place >= size)
    return std::nullopt;
  return static_cast<std::size_t>(place);
}

Value elementAt(Runtime& runtime, const Value& whole, const std::string& type, std::int64_t index) {
  if (auto element = simpleElement(runtime, whole, type, index))
    return *std::move(element);
  missing(whole, titleOf(type, index), errors::noSuchObject);
}

Value elementsBetween(Runtime& runtime, const Value& whole, const std::string& type,
                      const Bound& first, const Bound& last) {
  if (whole.is(ValueKind::text) && type == "text")
    return textBetween(runtime, whole, first, last);
  const Value all = everyElement(runtime, whole, type);
  const std::vector<Value>& values = all.as<List>()->values();
  const auto from = placeOf(first.index, values.size());
  const auto to = placeOf(last.index, values.size());
  if (!from || !to)
    missing(whole,
            type + "s " + std::to_string(first.index) + " thru " + std::to_string(last.index),
            errors::noSuchObject);
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
  for (const TextPart& each : partsOrError(runtime, whole, type)) {
    runtime.step();
    values.push_back(part(runtime, text->value(), each));
  }
  return runtime.list(std::move(values));
}

std::int64_t countElements(Runtime& runtime, const Value& whole, const std::string& type) {
  if (const auto* record = whole.as<Record>(); record && type == "item")
    return static_cast<std::int64_t>(record->entries().size());
  if (const auto* text = whole.as<Text>(); text && isCharacter(type))
    return static_cast<std::int64_t>(text->length());
  if (whole.is(ValueKind::text))
    return static_cast<std::int64_t>(partsOrError(runtime, whole, type).size());
  return static_cast<std::int64_t>(valuesOf(runtime, whole, type).size());
}

} // namespace tavrel::script
