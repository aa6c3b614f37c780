#pragma once

#include "base/PropertyList.h"

#include <optional>

namespace tavrel {

/// The captured selection as a value for scripts, the first kind it holds: an array of paths, a
/// URL string, the words of rich text, plain text, image data; "Unknown Object" when it holds none.
/// Nothing when rich text is there and cannot be read.
[[nodiscard]] std::optional<PropertyList> selectionValue();

} // namespace tavrel
