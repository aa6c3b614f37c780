#pragma once

#include "script/values/Runtime.h"

namespace tavrel::script {

/// -1, 0 or 1. Throws ScriptError (`cannotCoerce`) for what has no order: only numbers, texts,
/// files and dates come before or after one another.
[[nodiscard]] int compare(Runtime& runtime, const Value& a, const Value& b);

/// Values of different classes differ; an integer may equal a real.
[[nodiscard]] bool areEqual(Runtime& runtime, const Value& a, const Value& b);

// A list holds, starts with or ends with another list, or a single value; anything else is taken
// as text. Each throws ScriptError (`cannotCoerce`) for what is no text.

/// A record contains another when it has all entries of it.
[[nodiscard]] bool contains(Runtime& runtime, const Value& whole, const Value& part);
[[nodiscard]] bool startsWith(Runtime& runtime, const Value& whole, const Value& part);
[[nodiscard]] bool endsWith(Runtime& runtime, const Value& whole, const Value& part);

} // namespace tavrel::script
