#pragma once

#include "platform/Workspace.h"

#include <string>
#include <vector>

namespace tavrel {

/// Moves or copies the names from one folder into another: all, or none. What has a name in the
/// destination already is never touched, not even by accident of time: each file gets its name
/// there by a renaming that refuses one that is taken.
[[nodiscard]] bool transferNames(FileOperation operation, const std::string& source,
                                 const std::string& destination,
                                 const std::vector<std::string>& names);

} // namespace tavrel
