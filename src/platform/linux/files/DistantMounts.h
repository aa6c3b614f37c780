#pragma once

#include "platform/Files.h"

#include <optional>
#include <string>

namespace tavrel {

/// The mount point of the distant file system that a path leads to: one that another program or
/// another machine answers for, and may fail to. Nothing for a path on this machine, and for all of
/// them when the root is distant itself. Follows symbolic links as far as that touches no such file
/// system. Any thread.
[[nodiscard]] std::optional<std::string> distantMountOf(const std::string& path, FinalLink link);

} // namespace tavrel
