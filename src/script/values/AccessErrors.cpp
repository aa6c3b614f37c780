#include "script/values/AccessErrors.h"

#include "script/values/Coercion.h"
#include "script/values/Elements.h"
#include "script/values/Properties.h"

namespace tavrel::script {
namespace {

[[noreturn]] void cannotSet(const std::string& what, const Value& whole) {
  std::string message = "Can’t set ";
  message.append(what).append(" of ").append(described(whole)).append(".");
  throw ScriptError{errors::cannotSet, std::move(message)};
}

bool isDelimiters(const Value& whole, const std::string& name) {
  return name == "text item delimiters" &&
         (whole.is(ValueKind::constant) || whole.is(ValueKind::script));
}

} // namespace

void cannotGet(const std::string& what, const Value& whole) {
  std::string message = "Can’t get ";
  message.append(what).append(" of ").append(described(whole)).append(".");
  throw ScriptError{errors::noSuchObject, std::move(message)};
}

Value propertyPart(Runtime& runtime, const Value& whole, const std::string* name) {
  if (isDelimiters(whole, *name))
    return runtime.delimiters;
  if (auto value = propertyOf(runtime, whole, name))
    return *std::move(value);
  if (whole.is(ValueKind::text) && *name == "text")
    return whole;
  cannotGet(*name, whole);
}

void setPropertyPart(Runtime& runtime, const Value& whole, const std::string* name, Value value) {
  if (isDelimiters(whole, *name))
    runtime.delimiters = std::move(value);
  else if (!setProperty(runtime, whole, name, value))
    cannotSet(*name, whole);
}

Value elementPart(Runtime& runtime, const Value& whole, const std::string& type, const Value& key) {
  if (key.isNumber())
    return elementAt(runtime, whole, type, integerOf(runtime, key));
  // file "/a/b" outside of any application
  if (type != "file" && type != "folder" && type != "disk")
    cannotGet(type + " " + described(key), whole);
  return coerced(runtime, key, "file");
}

void setElementPart(Runtime& runtime, const Value& whole, const std::string& type, const Value& key,
                    Value value) {
  auto* list = whole.as<List>();
  const auto place =
      list ? placeOf(integerOf(runtime, key), list->size()) : std::optional<std::size_t>();
  if (!place || type != "item")
    cannotSet(type + " " + described(key), whole);
  list->replace(*place, std::move(value));
}

} // namespace tavrel::script
