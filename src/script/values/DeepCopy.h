#pragma once

#include "script/values/Runtime.h"

namespace tavrel::script {

/// What `copy` gives: a list, record, date or script that shares nothing with the original, down to
/// the last element. Other values never change and are given as they are. Scripts that a script
/// holds are not copied: they stand inside the original.
[[nodiscard]] Value deepCopy(Runtime& runtime, const Value& value);

} // namespace tavrel::script
