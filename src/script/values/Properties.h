#pragma once

#include "script/values/Runtime.h"

#include <optional>

namespace tavrel::script {

/// The property of a value, as `length` of a text, an entry of a record or a property of a script;
/// nothing when the value has none of that name.
[[nodiscard]] std::optional<Value> findProperty(Runtime& runtime, const Value& value,
                                                const std::string* name);

/// The same, and the run's `text item delimiters`, which belong to no value. Throws ScriptError
/// (`noSuchObject`) when there is no such property.
[[nodiscard]] Value propertyOf(Runtime& runtime, const Value& value, const std::string* name);

/// Sets an entry of a record, a property of a script, a component of a date or the run's
/// `text item delimiters`. Throws ScriptError (`cannotSet`) for everything else.
void setProperty(Runtime& runtime, const Value& value, const std::string* name, Value to);

/// The text between apostrophes, as a shell takes it for one word.
[[nodiscard]] std::string quotedForm(std::string_view text);

} // namespace tavrel::script
