#pragma once

#include <set>
#include <string>

namespace tavrel {

/// Where file systems are mounted now. Looking it up touches none of them.
[[nodiscard]] std::set<std::string> mountPoints();

} // namespace tavrel
