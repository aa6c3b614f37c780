#pragma once

#include <string>

namespace tavrel {

/// Where the program's images, sounds and texts are: $TAVREL_RESOURCES when set; else, when it is
/// installed, share/tavrel beside the bin folder; else the resources of the build tree.
[[nodiscard]] std::string resourceFolder();

} // namespace tavrel
