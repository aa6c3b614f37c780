#include "controller/PreferenceStore.h"

#include "base/Numbers.h"
#include "controller/SettingKeys.h"
#include "platform/Platform.h"
#include "platform/Preferences.h"

namespace tavrel {

namespace {
std::optional<PropertyList> stored(const std::string& key) {
  return platform().preferences.value(preferenceDomain, key);
}

double number(const std::string& key) {
  const auto value = stored(key);
  return value ? doubleValue(*value).value_or(0.0) : 0.0;
}
} // namespace

bool TVR_BoolForKey(const std::string& key, bool defaultValue) {
  const auto value = stored(key);
  return value ? value->boolean().value_or(defaultValue) : defaultValue;
}

std::int32_t TVR_IntForKey(const std::string& key, std::int32_t defaultValue) {
  const auto value = stored(key);
  return value ? int32Value(*value).value_or(defaultValue) : defaultValue;
}

float TVR_FloatForKey(const std::string& key) {
  return floatFromDouble(number(key));
}

double TVR_DoubleForKey(const std::string& key) {
  return number(key);
}

std::optional<std::string> TVR_StringForKey(const std::string& key) {
  const auto value = stored(key);
  if (!value || !value->string())
    return std::nullopt;
  return *value->string();
}

std::optional<PropertyList::Array> TVR_ArrayForKey(const std::string& key) {
  const auto value = stored(key);
  if (!value || !value->array())
    return std::nullopt;
  return *value->array();
}

std::optional<PropertyList> copyMenuRootArray() {
  auto value = stored(TVR_MenuTree);
  if (!value || !value->array())
    return std::nullopt;
  return value;
}

void TVR_SetObjectForKey(const PropertyList& value, const std::string& key) {
  platform().preferences.setValue(preferenceDomain, key, value);
}

} // namespace tavrel
