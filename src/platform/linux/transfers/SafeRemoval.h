#pragma once

#include <string>

namespace tavrel {

/// Removes what is at a relative path below a folder, with everything in it. No symbolic link below
/// the folder is followed: one on the way is refused, one at the end or inside is removed itself.
/// An empty path, an absolute one and one with ".." are refused. Empty when it was done or nothing
/// was there, else the reason in one clause.
[[nodiscard]] std::string removeBelow(const std::string& folder, const std::string& relative);

} // namespace tavrel
