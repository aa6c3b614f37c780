#pragma once

#include "script/values/Runtime.h"

namespace tavrel::script {

/// The code points of a text that comparisons look at: those that the run ignores left out, the
/// others without the differences that it ignores (Runtime::considered).
[[nodiscard]] std::u32string comparisonKey(const Runtime& runtime, std::string_view text);

/// -1, 0 or 1, by code points; numbers inside by their value where the run considers them.
[[nodiscard]] int compareTexts(Runtime& runtime, const std::string& a, const std::string& b);

} // namespace tavrel::script
