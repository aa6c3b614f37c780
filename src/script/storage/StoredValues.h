#pragma once

#include "base/PropertyList.h"
#include "script/values/Runtime.h"

#include <optional>

namespace tavrel::script {

/// A property's value as it is kept in the file: numbers, texts, dates and lists as they are;
/// others as a dictionary with the key "class". Nothing for scripts, objects of applications and
/// what nests too deep or is larger than 32 MB.
[[nodiscard]] std::optional<PropertyList> storedValue(const Value& value);

/// The value that was kept; nothing for what storedValue never makes.
[[nodiscard]] std::optional<Value> restoredValue(Runtime& runtime, const PropertyList& stored);

} // namespace tavrel::script
