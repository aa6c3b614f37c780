#pragma once

#include "base/PropertyList.h"
#include "platform/Preferences.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tavrel {

/// The stored value when it is a boolean; a number is none.
[[nodiscard]] bool TVR_BoolForKey(const std::string& key, bool defaultValue);

/// The stored number as a 32-bit integer; the default for every other kind.
[[nodiscard]] std::int32_t TVR_IntForKey(const std::string& key, std::int32_t defaultValue);

/// The stored number, 0.0 for every other kind. One beyond the largest float is an infinity.
[[nodiscard]] float TVR_FloatForKey(const std::string& key);
[[nodiscard]] double TVR_DoubleForKey(const std::string& key);

/// The stored value when it is of that kind.
[[nodiscard]] std::optional<std::string> TVR_StringForKey(const std::string& key);
[[nodiscard]] std::optional<PropertyList::Array> TVR_ArrayForKey(const std::string& key);

/// The menu tree itself, an array; nothing when the stored value is none.
[[nodiscard]] std::optional<PropertyList> copyMenuRootArray();

/// Stores a value; the domain is not synchronised.
void TVR_SetObjectForKey(const PropertyList& value, const std::string& key);

} // namespace tavrel
