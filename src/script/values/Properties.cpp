#include "script/values/Properties.h"

#include "script/values/AccessErrors.h"
#include "script/values/CodePoints.h"
#include "script/values/Coercion.h"
#include "script/values/Dates.h"
#include "script/values/Description.h"
#include "script/values/ScriptObject.h"

#include <algorithm>

namespace tavrel::script {
namespace {

Value textProperty(Runtime& runtime, const Text& text, std::string_view name, bool& found) {
  if (name == "length")
    return Value::integer(static_cast<std::int64_t>(text.length()));
  if (name == "quoted form")
    return runtime.text(quotedForm(text.value()));
  if (name == "posix path")
    return runtime.text(text.value());
  if (name == "id") {
    std::size_t at = 0;
    std::vector<Value> codes;
    while (at < text.value().size())
      codes.push_back(Value::integer(takeCodePoint(text.value(), at)));
    return codes.size() == 1 ? codes[0] : runtime.list(std::move(codes));
  }
  found = false;
  return {};
}

Value listProperty(Runtime& runtime, const List& list, std::string_view name, bool& found) {
  const std::vector<Value>& values = list.values();
  if (name == "length")
    return Value::integer(static_cast<std::int64_t>(values.size()));
  if (name == "reverse")
    return runtime.list({values.rbegin(), values.rend()});
  if (name == "rest" && !values.empty())
    return runtime.list({values.begin() + 1, values.end()});
  found = false;
  return {};
}

Value dateProperty(Runtime& runtime, const Date& date, std::string_view name, bool& found) {
  const DateComponents components = componentsOf(date.seconds);
  if (name == "year")
    return Value::integer(components.year);
  if (name == "month")
    return Value::constant(monthName(components.month));
  if (name == "day")
    return Value::integer(components.day);
  if (name == "weekday")
    return Value::constant(weekdayName(date.seconds));
  if (name == "hours")
    return Value::integer(components.hours);
  if (name == "minutes")
    return Value::integer(components.minutes);
  if (name == "seconds")
    return Value::integer(static_cast<std::int64_t>(components.seconds));
  if (name == "time")
    return Value::integer(components.hours * 3600 + components.minutes * 60 +
                          static_cast<std::int64_t>(components.seconds));
  if (name == "date string")
    return runtime.text(dateString(date.seconds));
  if (name == "short date string")
    return runtime.text(shortDateString(date.seconds));
  if (name == "time string")
    return runtime.text(timeString(date.seconds));
  found = false;
  return {};
}

Value fileProperty(Runtime& runtime, const File& file, std::string_view name, bool& found) {
  if (name == "posix path")
    return runtime.text(file.path);
  if (name == "name") {
    const std::size_t end = file.path.find_last_not_of('/');
    const std::string path = file.path.substr(0, end == std::string::npos ? 0 : end + 1);
    return runtime.text(path.substr(path.find_last_of('/') + 1));
  }
  found = false;
  return {};
}

int monthOf(Runtime& runtime, const Value& value) {
  for (int month = 1; month <= 12; ++month)
    if (value.is(ValueKind::constant) && value.name() == monthName(month))
      return month;
  return static_cast<int>(std::clamp<std::int64_t>(integerOf(runtime, value), -9999, 9999));
}

bool setDateComponent(Runtime& runtime, Date& date, std::string_view name, const Value& to) {
  DateComponents components = componentsOf(date.seconds);
  if (name == "month") {
    components.month = monthOf(runtime, to);
    date.seconds = secondsOf(components);
    return true;
  }
  const auto number =
      static_cast<int>(std::clamp<std::int64_t>(integerOf(runtime, to), -1'000'000, 1'000'000));
  if (name == "time") {
    components.hours = components.minutes = 0;
    components.seconds = number;
  } else if (name == "year")
    components.year = number;
  else if (name == "day")
    components.day = number;
  else if (name == "hours")
    components.hours = number;
  else if (name == "minutes")
    components.minutes = number;
  else if (name == "seconds")
    components.seconds = number;
  else
    return false;
  date.seconds = secondsOf(components);
  return true;
}

std::optional<Value> entryOf(const Value& value, const std::string* name) {
  if (const auto* record = value.as<Record>()) {
    const Value* found = record->find(name);
    if (found || *name != "length")
      return found ? std::optional(*found) : std::nullopt;
    return Value::integer(static_cast<std::int64_t>(record->entries().size()));
  }
  auto* script = value.as<ScriptObject>();
  Value* field = script ? script->find(name) : nullptr;
  if (field)
    return *field;
  if (script && *name == "name")
    return std::nullopt;
  return script && *name == "parent" ? std::optional(script->parent) : std::nullopt;
}

// Answers whether the value has the property, and one that can be set.
bool setOwnProperty(Runtime& runtime, const Value& value, const std::string* name,
                    const Value& to) {
  if (auto* record = value.as<Record>()) {
    const bool has = record->find(name) != nullptr;
    if (has)
      record->set(name, to);
    return has;
  }
  if (auto* script = value.as<ScriptObject>()) {
    Value* field = script->find(name);
    if (field)
      *field = to;
    return field != nullptr;
  }
  auto* date = value.as<Date>();
  return date && setDateComponent(runtime, *date, *name, to);
}

// `text item delimiters` are written as a property of AppleScript, which is a constant here, or of
// the script.
bool isDelimiters(const Value& whole, const std::string& name) {
  return name == "text item delimiters" &&
         (whole.is(ValueKind::constant) || whole.is(ValueKind::script));
}

} // namespace

std::string quotedForm(std::string_view text) {
  std::string result = "'";
  for (char c : text)
    if (c == '\'')
      result += "'\\''";
    else
      result += c;
  return result += '\'';
}

std::optional<Value> findProperty(Runtime& runtime, const Value& value, const std::string* name) {
  if (value.is(ValueKind::record) || value.is(ValueKind::script))
    if (auto entry = entryOf(value, name))
      return entry;
  if (*name == "class")
    return Value::typeName(typeOf(value));
  if (*name == "contents")
    return value;
  bool found = true;
  Value result;
  if (const auto* text = value.as<Text>())
    result = textProperty(runtime, *text, *name, found);
  else if (const auto* list = value.as<List>())
    result = listProperty(runtime, *list, *name, found);
  else if (const auto* date = value.as<Date>())
    result = dateProperty(runtime, *date, *name, found);
  else if (const auto* file = value.as<File>())
    result = fileProperty(runtime, *file, *name, found);
  else
    found = false;
  return found ? std::optional(result) : std::nullopt;
}

Value propertyOf(Runtime& runtime, const Value& value, const std::string* name) {
  if (isDelimiters(value, *name))
    return runtime.delimiters;
  if (auto property = findProperty(runtime, value, name))
    return *std::move(property);
  if (value.is(ValueKind::text) && *name == "text")
    return value;
  cannotGet(*name, value);
}

void setProperty(Runtime& runtime, const Value& value, const std::string* name, Value to) {
  if (isDelimiters(value, *name))
    runtime.delimiters = std::move(to);
  else if (!setOwnProperty(runtime, value, name, to))
    cannotSet(*name, value);
}

} // namespace tavrel::script
