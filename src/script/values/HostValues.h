#pragma once

#include "script/values/Runtime.h"

namespace tavrel::script {

/// What the desktop gives, as a script's value.
[[nodiscard]] Value valueFromHost(Runtime& runtime, const HostValue& value);

/// A script's value as the desktop takes it. Throws (`cannotCoerce`) for scripts.
[[nodiscard]] HostValue valueForHost(Runtime& runtime, const Value& value);

} // namespace tavrel::script
