#include "script/values/Comparison.h"

#include "script/values/Coercion.h"
#include "script/values/Description.h"
#include "script/values/TextComparison.h"

#include <algorithm>

namespace tavrel::script {
namespace {

int sign(double difference) {
  return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

bool equalLists(Runtime& runtime, const List& a, const List& b) {
  runtime.guardStack();
  if (a.size() != b.size())
    return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    runtime.step();
    if (!areEqual(runtime, a.values()[i], b.values()[i]))
      return false;
  }
  return true;
}

bool equalRecords(Runtime& runtime, const Record& a, const Record& b) {
  runtime.guardStack();
  return a.entries().size() == b.entries().size() &&
         std::all_of(a.entries().begin(), a.entries().end(), [&](const Record::Entry& entry) {
           const Value* other = b.find(entry.first);
           runtime.step();
           return other && areEqual(runtime, entry.second, *other);
         });
}

bool equalObjects(Runtime& runtime, const Value& a, const Value& b) {
  if (const auto* text = a.as<Text>())
    return compareTexts(runtime, text->value(), b.as<Text>()->value()) == 0;
  if (const auto* list = a.as<List>())
    return a.object() == b.object() || equalLists(runtime, *list, *b.as<List>());
  if (const auto* record = a.as<Record>())
    return a.object() == b.object() || equalRecords(runtime, *record, *b.as<Record>());
  if (const auto* date = a.as<Date>())
    return date->seconds == b.as<Date>()->seconds;
  if (const auto* file = a.as<File>())
    return file->path == b.as<File>()->path;
  if (a.is(ValueKind::specifier))
    return described(a) == described(b);
  return a.object() == b.object();
}

// Throws unless the value is one that comes before or after others, or a list of such a one.
void refuseUnordered(const Value& value) {
  const auto* list = value.as<List>();
  const Value& single = list && list->size() == 1 ? list->values()[0] : value;
  if (!single.isNumber() && !single.is(ValueKind::text) && !single.is(ValueKind::date) &&
      !single.is(ValueKind::file))
    throw ScriptError{errors::cannotCoerce, described(value).append(" has no order.")};
}

// The class under the one name that all its names compare by.
std::string_view plainType(std::string_view name) {
  if (name == "string" || name == "unicode text")
    return "text";
  return name == "posix file" ? "file" : name;
}

// Whether the list has the wanted elements, or the single one, from a position on.
bool hasAt(Runtime& runtime, const List& list, std::size_t position, const Value& wanted) {
  const auto* several = wanted.as<List>();
  const std::vector<Value> values = several ? several->values() : std::vector<Value>{wanted};
  if (values.size() > list.size() - position)
    return false;
  for (std::size_t i = 0; i < values.size() && position + i < list.size(); ++i) {
    runtime.step();
    if (!areEqual(runtime, list.values()[position + i], values[i]))
      return false;
  }
  return true;
}

} // namespace

int compare(Runtime& runtime, const Value& a, const Value& b) {
  if (a.isNumber() && b.isNumber())
    return a.is(b.kind()) && a.is(ValueKind::integer) ? (a.integer() < b.integer()   ? -1
                                                         : a.integer() > b.integer() ? 1
                                                                                     : 0)
                                                      : sign(a.number() - b.number());
  if (const auto* date = a.as<Date>())
    return sign(date->seconds - coerced(runtime, b, "date").as<Date>()->seconds);
  refuseUnordered(a);
  refuseUnordered(b);
  if (a.isNumber())
    return sign(a.number() - numberOf(runtime, b).number());
  return compareTexts(runtime, textOf(runtime, a), textOf(runtime, b));
}

bool areEqual(Runtime& runtime, const Value& a, const Value& b) {
  if (a.isNumber() && b.isNumber())
    return a.is(b.kind()) && a.is(ValueKind::integer) ? a.integer() == b.integer()
                                                      : a.number() == b.number();
  if (a.is(ValueKind::typeName) && b.is(ValueKind::typeName))
    return plainType(a.name()) == plainType(b.name());
  if (a.kind() != b.kind())
    return false;
  switch (a.kind()) {
  case ValueKind::undefined:
  case ValueKind::missing:
    return true;
  case ValueKind::boolean:
    return a.boolean() == b.boolean();
  case ValueKind::constant:
    return &a.name() == &b.name();
  default:
    return equalObjects(runtime, a, b);
  }
}

// A list contains another list when its elements stand there side by side in that order.
bool contains(Runtime& runtime, const Value& whole, const Value& part) {
  if (const auto* record = whole.as<Record>()) {
    const auto* other = part.as<Record>();
    return other && std::all_of(other->entries().begin(), other->entries().end(),
                                [&](const Record::Entry& entry) {
                                  const Value* mine = record->find(entry.first);
                                  return mine && areEqual(runtime, *mine, entry.second);
                                });
  }
  const auto* list = whole.as<List>();
  if (!list)
    return comparisonKey(runtime, textOf(runtime, whole))
               .find(comparisonKey(runtime, textOf(runtime, part))) != std::u32string::npos;
  const auto* run = part.as<List>();
  const std::vector<Value> wanted = run ? run->values() : std::vector<Value>{part};
  const auto& values = list->values();
  const auto found = std::search(values.begin(), values.end(), wanted.begin(), wanted.end(),
                                 [&](const Value& a, const Value& b) {
                                   runtime.step();
                                   return areEqual(runtime, a, b);
                                 });
  return found != values.end() || wanted.empty();
}

bool startsWith(Runtime& runtime, const Value& whole, const Value& part) {
  if (const auto* list = whole.as<List>())
    return hasAt(runtime, *list, 0, part);
  return comparisonKey(runtime, textOf(runtime, whole))
      .starts_with(comparisonKey(runtime, textOf(runtime, part)));
}

bool endsWith(Runtime& runtime, const Value& whole, const Value& part) {
  if (const auto* list = whole.as<List>()) {
    const auto* several = part.as<List>();
    const std::size_t count = several ? several->size() : 1;
    return count <= list->size() && hasAt(runtime, *list, list->size() - count, part);
  }
  return comparisonKey(runtime, textOf(runtime, whole))
      .ends_with(comparisonKey(runtime, textOf(runtime, part)));
}

} // namespace tavrel::script
