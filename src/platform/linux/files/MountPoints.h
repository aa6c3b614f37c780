#pragma once

#include <set>
#include <string>

namespace tavrel {

/// Where file systems are mounted now. Looking it up touches none of them.
[[nodiscard]] std::set<std::string> mountPoints();

/// Those of them that another program or another machine answers for, and may fail to.
[[nodiscard]] std::set<std::string> distantMountPoints();

} // namespace tavrel
