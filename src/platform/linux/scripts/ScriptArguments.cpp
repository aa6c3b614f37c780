#include "platform/linux/scripts/ScriptArguments.h"

#include <charconv>
#include <cmath>

namespace tavrel {

using namespace script;

std::optional<std::string> scriptText(const HostValue& value) {
  if (const auto* text = std::get_if<std::string>(&value.value))
    return *text;
  if (const auto* file = std::get_if<HostFile>(&value.value))
    return file->path;
  if (const auto* name = std::get_if<HostName>(&value.value))
    return name->name;
  if (const auto* number = std::get_if<std::int64_t>(&value.value))
    return std::to_string(*number);
  return std::nullopt;
}

std::optional<double> scriptNumber(const HostValue& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value.value))
    return static_cast<double>(*number);
  if (const auto* number = std::get_if<double>(&value.value))
    return *number;
  const auto* text = std::get_if<std::string>(&value.value);
  double number = 0;
  const char* end = text ? text->data() + text->size() : nullptr;
  const bool isNumber = text && std::from_chars(text->data(), end, number).ptr == end;
  return isNumber && !text->empty() && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::vector<std::string> scriptPaths(const HostValue& value) {
  std::vector<std::string> paths;
  if (const auto* list = std::get_if<HostList>(&value.value)) {
    for (const HostValue& each : *list)
      for (std::string& path : scriptPaths(each))
        paths.push_back(std::move(path));
    return paths;
  }
  const auto* object = std::get_if<ObjectPath>(&value.value);
  const bool isFile = object && !object->steps.empty() && !object->steps.back().keys.empty();
  auto path = isFile ? scriptText(object->steps.back().keys[0]) : scriptText(value);
  if (path && path->starts_with("/") && path->find('\0') == std::string::npos)
    paths.push_back(*std::move(path));
  return paths;
}

std::vector<std::string> scriptTexts(const HostValue& value) {
  std::vector<std::string> texts;
  if (const auto* list = std::get_if<HostList>(&value.value)) {
    for (const HostValue& each : *list)
      texts.push_back(scriptText(each).value_or(""));
    return texts;
  }
  if (auto text = scriptText(value))
    texts.push_back(*std::move(text));
  return texts;
}

std::optional<HostValue> listElement(const HostList& list, const ObjectStep& step) {
  if (step.kind == ObjectStep::Kind::every && step.name == "item")
    return HostValue{list};
  const auto* key = step.keys.empty() ? nullptr : std::get_if<std::int64_t>(&step.keys[0].value);
  const bool isIndex = step.kind == ObjectStep::Kind::element && step.name == "item" && key;
  const auto count = static_cast<std::int64_t>(list.size());
  const std::int64_t index = isIndex ? *key + (*key < 0 ? count + 1 : 0) : 0;
  if (index < 1 || index > count)
    return std::nullopt;
  return list[static_cast<std::size_t>(index - 1)];
}

const ObjectPath* objectIn(const HostEvent& event, std::string_view property) {
  const auto* object = event.direct ? std::get_if<ObjectPath>(&event.direct->value) : nullptr;
  const bool isIt = object && !object->steps.empty() &&
                    object->steps[0].kind == ObjectStep::Kind::property &&
                    object->steps[0].name == property;
  return isIt ? object : nullptr;
}

std::string directText(const HostEvent& event) {
  return event.direct ? scriptText(*event.direct).value_or("") : std::string();
}

const HostValue* parameterOf(const HostEvent& event, std::string_view label) {
  const auto found = event.parameters.find(std::string(label));
  return found != event.parameters.end() ? &found->second : nullptr;
}

std::string textParameter(const HostEvent& event, std::string_view label) {
  const HostValue* value = parameterOf(event, label);
  return value ? scriptText(*value).value_or("") : std::string();
}

bool flagParameter(const HostEvent& event, std::string_view label, bool otherwise) {
  const HostValue* value = parameterOf(event, label);
  const bool* flag = value ? std::get_if<bool>(&value->value) : nullptr;
  return flag ? *flag : otherwise;
}

} // namespace tavrel
