#pragma once

#include "platform/linux/transfers/ExclusiveRename.h"

#include <sys/stat.h>

namespace tavrel {

/// Copies one thing that is no folder to a place where nothing is, metadata included: a file
/// with its holes, a symbolic link as a link, a pipe, socket or device as a new one of its kind
/// (never opened; devices can be made by root alone). It is an error when the file changes
/// meanwhile or the copy reads back different; the caller removes what is at the destination then.
[[nodiscard]] std::error_code copyNode(NameInFolder from, const struct stat& status,
                                       NameInFolder to);

} // namespace tavrel
