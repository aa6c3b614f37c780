#include "script/values/Coercion.h"

#include "base/Decimal.h"
#include "script/values/Dates.h"
#include "script/values/Description.h"
#include "script/values/Reference.h"

#include <charconv>
#include <cmath>

namespace tavrel::script {
namespace {

[[noreturn]] void refuse(const Value& value, std::string_view type) {
  std::string message = "Can’t make ";
  message.append(described(value)).append(" into type ").append(type).append(".");
  throw ScriptError{errors::cannotCoerce, std::move(message)};
}

bool isText(std::string_view type) {
  return type == "text" || type == "string" || type == "unicode text" || type == "utf8";
}

std::string joined(Runtime& runtime, const List& list) {
  runtime.guardStack();
  const Value& delimiters = runtime.delimiters;
  const auto* several = delimiters.as<List>();
  const bool none = several && several->size() == 0;
  const std::string between =
      none ? std::string() : textOf(runtime, several ? several->values()[0] : delimiters);
  std::string result;
  const std::vector<Value>& values = list.values();
  for (std::size_t i = 0; i < values.size(); ++i) {
    runtime.step();
    result.append(i > 0 ? between : std::string()).append(textOf(runtime, values[i]));
    if (result.size() > runtime.heap.limit)
      throw ScriptError{errors::outOfMemory, "Out of memory."};
  }
  return result;
}

Value asList(Runtime& runtime, const Value& value) {
  if (value.is(ValueKind::list))
    return value;
  if (value.is(ValueKind::undefined))
    refuse(value, "list");
  const auto* record = value.as<Record>();
  if (!record)
    return runtime.list({value});
  std::vector<Value> values;
  for (const auto& [label, each] : record->entries())
    values.push_back(each);
  return runtime.list(std::move(values));
}

Value asInteger(Runtime& runtime, const Value& value) {
  const Value number = numberOf(runtime, value);
  if (number.is(ValueKind::integer))
    return number;
  const double rounded = std::nearbyint(number.real());
  if (!(std::fabs(rounded) < integerRange))
    refuse(value, "integer");
  return Value::integer(static_cast<std::int64_t>(rounded));
}

Value asBoolean(const Value& value) {
  if (value.is(ValueKind::boolean))
    return value;
  if (value.is(ValueKind::integer) && (value.integer() == 0 || value.integer() == 1))
    return Value::boolean(value.integer() == 1);
  const auto* text = value.as<Text>();
  if (text && (text->value() == "true" || text->value() == "false"))
    return Value::boolean(text->value() == "true");
  refuse(value, "boolean");
}

// Scripts find out whether a file is there by naming an alias of it, which must fail if it is not.
// Sources of the application itself name files that it knows.
void demandFile(Runtime& runtime, const std::string& path) {
  if (runtime.author == Author::application)
    return;
  const HostAnswer answer =
      runtime.host.perform({"Finder", "exists", HostValue{HostFile{path}}, {}});
  const auto* value = std::get_if<HostValue>(&answer);
  const bool* exists = value ? std::get_if<bool>(&value->value) : nullptr;
  if (exists && !*exists)
    throw ScriptError{errors::fileNotFound,
                      std::string("File ").append(path).append(" wasn’t found.")};
}

Value asFile(const Value& value, const std::string& type) {
  const auto* file = value.as<File>();
  if (!file && !value.is(ValueKind::text))
    refuse(value, type);
  const std::string path = file ? file->path : value.as<Text>()->value();
  return Value(Ref(new File(path, type == "alias")));
}

Value asAlias(Runtime& runtime, const Value& value) {
  Value alias = asFile(value, "alias");
  const auto* file = value.as<File>();
  if (!file || !file->isAlias)
    demandFile(runtime, alias.as<File>()->path);
  return alias;
}

// `as alias list`: always a list, and of files only.
Value asFiles(Runtime& runtime, const Value& value) {
  const Value all = asList(runtime, value);
  std::vector<Value> files;
  for (const Value& each : all.as<List>()->values())
    files.push_back(asFile(each, "alias"));
  return runtime.list(std::move(files));
}

Value asDate(Runtime& runtime, const Value& value) {
  if (value.is(ValueKind::date))
    return value;
  const auto* text = value.as<Text>();
  const auto seconds = text ? parseDate(text->value(), runtime.host.now()) : std::nullopt;
  if (!seconds)
    refuse(value, "date");
  return runtime.date(*seconds);
}

// Where a single value is wanted, a list of one stands for its element.
const Value& unwrapped(const Value& value) {
  const auto* list = value.as<List>();
  return list && list->size() == 1 ? list->values()[0] : value;
}

} // namespace

std::optional<Value> parseNumber(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
    text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
    text.remove_suffix(1);
  const std::size_t sign = !text.empty() && text.front() == '+' ? 1 : 0;
  const char* first = text.data() + sign;
  const char* last = text.data() + text.size();
  std::int64_t whole = 0;
  if (const auto read = std::from_chars(first, last, whole);
      read.ec == std::errc() && read.ptr == last)
    return Value::integer(whole);
  const auto real = decimalNumber(text.substr(sign));
  return real ? std::optional(Value::real(*real)) : std::nullopt;
}

Value numberOf(Runtime& runtime, const Value& given) {
  const Value& value = unwrapped(given);
  if (value.is(ValueKind::reference))
    return numberOf(runtime, dereferenced(runtime, value));
  if (value.isNumber())
    return value;
  if (value.is(ValueKind::boolean))
    return Value::integer(value.boolean() ? 1 : 0);
  if (value.is(ValueKind::constant) && calendarNumber(value.name()) > 0)
    return Value::integer(calendarNumber(value.name()));
  runtime.step();
  if (const auto* text = value.as<Text>())
    if (const auto number = parseNumber(text->value()))
      return *number;
  refuse(value, "number");
}

std::int64_t integerOf(Runtime& runtime, const Value& value) {
  return asInteger(runtime, value).integer();
}

bool booleanOf(const Value& value) {
  return asBoolean(value).boolean();
}

std::string textOf(Runtime& runtime, const Value& value) {
  if (value.is(ValueKind::reference))
    return textOf(runtime, dereferenced(runtime, value));
  if (const auto* text = value.as<Text>())
    return text->value();
  if (const auto* list = value.as<List>())
    return joined(runtime, *list);
  if (const auto* date = value.as<Date>())
    return dateText(date->seconds);
  if (const auto* file = value.as<File>())
    return file->path;
  if (value.isObject() || value.is(ValueKind::undefined))
    refuse(value, "text");
  return described(value);
}

Value coerced(Runtime& runtime, const Value& value, const std::string& type) {
  if (value.is(ValueKind::reference))
    return coerced(runtime, dereferenced(runtime, value), type);
  if (type == "list")
    return asList(runtime, value);
  if (type == "alias list")
    return asFiles(runtime, value);
  if (isText(type))
    return value.is(ValueKind::text) ? value : runtime.text(textOf(runtime, value));
  if (type == "integer")
    return asInteger(runtime, value);
  if (type == "number")
    return numberOf(runtime, value);
  if (type == "real")
    return Value::real(numberOf(runtime, value).number());
  const Value& single = unwrapped(value);
  if (type == "boolean")
    return asBoolean(single);
  if (type == "date")
    return asDate(runtime, single);
  if (type == "posix file" || type == "file" || type == "alias" || type == "furl")
    return type == "alias" ? asAlias(runtime, single) : asFile(single, type);
  if (type != "item" && type != typeOf(value))
    refuse(value, type);
  return value;
}

} // namespace tavrel::script
