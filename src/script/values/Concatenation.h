#pragma once

#include "script/values/Runtime.h"

namespace tavrel::script {

/// `a & b`. The left side decides: a text takes the right side as text, a record joins a record
/// and keeps its own entry where both have a label, and everything else makes a list. Throws
/// ScriptError (`cannotCoerce`) for what has no such form.
[[nodiscard]] Value concatenated(Runtime& runtime, const Value& a, const Value& b);

} // namespace tavrel::script
