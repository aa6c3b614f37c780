#pragma once

#include "script/values/Runtime.h"

#include <optional>

namespace tavrel::script {

/// The property of a value, as `length` of a text or an entry of a record; nothing when the value
/// has none of that name.
[[nodiscard]] std::optional<Value> propertyOf(Runtime& runtime, const Value& value,
                                              const std::string* name);

/// Whether the property could be set: entries of records, fields of scripts, parts of dates.
[[nodiscard]] bool setProperty(Runtime& runtime, const Value& value, const std::string* name,
                               const Value& to);

/// The path between apostrophes, as a shell takes it for one word.
[[nodiscard]] std::string quotedForm(std::string_view text);

} // namespace tavrel::script
