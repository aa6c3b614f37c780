#pragma once

#include "script/values/Runtime.h"

namespace tavrel::script {

// The parts of a value of the engine itself, those that a script can name. Each throws
// ScriptError: `noSuchObject` for a part that is not there, `cannotSet` for one that cannot be
// written.

[[nodiscard]] Value propertyPart(Runtime& runtime, const Value& whole, const std::string* name);
void setPropertyPart(Runtime& runtime, const Value& whole, const std::string* name, Value value);

/// The key is an index or, for files, a path.
[[nodiscard]] Value elementPart(Runtime& runtime, const Value& whole, const std::string& type,
                                const Value& key);
void setElementPart(Runtime& runtime, const Value& whole, const std::string& type, const Value& key,
                    Value value);

/// The error for a part that the whole does not have.
[[noreturn]] void cannotGet(const std::string& what, const Value& whole);

} // namespace tavrel::script
