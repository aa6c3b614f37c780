#pragma once

#include "platform/linux/transfers/ExclusiveRename.h"

#include <sys/stat.h>

namespace tavrel {

/// Copies one thing that is no folder to a place where nothing stands, metadata included: a file
/// with its holes, a symbolic link as a link, a pipe, socket or device as a new one of its kind
/// (never opened; devices take an administrator). A file that changes meanwhile, or that reads back
/// different, is an error; what stands at the destination after an error is the caller's to remove.
[[nodiscard]] std::error_code copyNode(FolderPlace from, const struct stat& status, FolderPlace to);

} // namespace tavrel
