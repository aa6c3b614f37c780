#pragma once

#include "platform/Files.h"

#include <string>

namespace tavrel {

/// Whether the file carries the invisible flag; false when it cannot be asked.
[[nodiscard]] bool isInvisibleFile(const std::string& path);

/// Whether such questions are about a symbolic link itself or about what it leads to.
[[nodiscard]] FinalLink visibilityLink();

/// Whether folder browsing never lists the file. The last component must not be empty: callers
/// pass names from directory listings.
[[nodiscard]] bool isHiddenSystemFile(const std::string& path);

} // namespace tavrel
