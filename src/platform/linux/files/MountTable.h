#pragma once

#include <memory>
#include <set>
#include <string>

namespace tavrel {

/// The mount points of distant file systems as of now; the same set as before as long as nothing
/// was mounted since. One short question to the kernel, which touches no file system. Any thread.
[[nodiscard]] std::shared_ptr<const std::set<std::string>> distantPointsNow();

} // namespace tavrel
