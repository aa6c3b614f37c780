#pragma once

#include "base/PropertyList.h"
#include "script/values/Runtime.h"

#include <optional>

namespace tavrel::script {

/// The value of a script's property as a container keeps it. Booleans, numbers, texts, dates and
/// lists are themselves; missing values, constants, classes, files, aliases and records are a
/// dictionary with "class" and, but for missing values, "value" (of records also "labels"). Nothing
/// for scripts, objects of applications, and what nests deeper than 100 levels or takes more than
/// 32 MB.
[[nodiscard]] std::optional<PropertyList> storedValue(const Value& value);

/// The value back; nothing for what storedValue never makes, as a file may hold anything.
[[nodiscard]] std::optional<Value> restoredValue(Runtime& runtime, const PropertyList& stored);

} // namespace tavrel::script
