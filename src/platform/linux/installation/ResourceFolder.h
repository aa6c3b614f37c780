#pragma once

#include <string>

namespace tavrel {

/// Where the program's images, sounds and texts are: $TAVREL_RESOURCES when set, else
/// share/tavrel beside the program's bin folder when it is installed, else the folder of the
/// build tree.
[[nodiscard]] std::string resourceFolder();

} // namespace tavrel
