#pragma once

#include "platform/linux/images/IconChoice.h"

#include <memory>
#include <optional>

namespace tavrel {

/// All that a file's icon needs from the file's own file system.
struct FileIconFacts {
  IconChoice choice;
  std::optional<std::string> picture; ///< the content of the choice's image file
};

/// May take as long as the file system does, for ever when it is dead. Any thread.
[[nodiscard]] FileIconFacts readFileIconFacts(const std::string& path,
                                              const SpecialFolders& folders);

} // namespace tavrel
