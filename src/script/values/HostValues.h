#pragma once

#include "script/values/Runtime.h"

namespace tavrel::script {

/// A value that the desktop gives, as a value of a script.
[[nodiscard]] Value valueFromHost(Runtime& runtime, const HostValue& value);

/// A value of a script as the desktop takes it. Throws ScriptError: `cannotCoerce` for scripts,
/// `outOfMemory` and `stackOverflow` for lists that hold others too often or themselves.
[[nodiscard]] HostValue valueForHost(Runtime& runtime, const Value& value);

} // namespace tavrel::script
