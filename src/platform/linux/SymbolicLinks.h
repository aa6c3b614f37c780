#pragma once

#include <string>

namespace tavrel {

/// The path with every symbolic link in it resolved; as it stands when there is none, or when it
/// leads nowhere.
[[nodiscard]] std::string withoutSymbolicLinks(std::string path);

} // namespace tavrel
