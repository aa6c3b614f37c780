#pragma once

#include "script/values/Runtime.h"
#include "script/values/Specifier.h"

namespace tavrel::script {

/// What the desktop or an application answers to an event. Throws its error as ScriptError, and
/// `notPermitted` for an event that the source of the run may not ask for (see Author).
[[nodiscard]] Value performEvent(Runtime& runtime, const HostEvent& event);

/// The value of an object of an application, which is asked for it, or behind a reference; any
/// other value as it is.
[[nodiscard]] Value fetched(Runtime& runtime, Value value);

/// Has the application set the object.
void setObject(Runtime& runtime, const Specifier& object, const Value& value);

} // namespace tavrel::script
