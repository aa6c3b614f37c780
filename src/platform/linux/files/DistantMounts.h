#pragma once

#include "platform/Files.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace tavrel {

/// Tells where distant file systems are mounted at the moment it is asked. The same set as before
/// means that nothing was mounted since.
using DistantPointsNow = std::function<std::shared_ptr<const std::set<std::string>>()>;

/// The mount point of the distant file system that a path leads to: one that another program or
/// another machine answers for, and may fail to. Nothing for a path on this machine, and for all of
/// them when the root is distant itself. Follows symbolic links as far as that touches no such file
/// system, and looks again at what is mounted before each. Any thread.
[[nodiscard]] std::optional<std::string> distantMountOf(const std::string& path, FinalLink link);
[[nodiscard]] std::optional<std::string> distantMountOf(const std::string& path, FinalLink link,
                                                        const DistantPointsNow& pointsNow);

} // namespace tavrel
