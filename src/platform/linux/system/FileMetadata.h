#pragma once

#include <string>
#include <sys/stat.h>
#include <system_error>

namespace tavrel {

/// Gives an open file or folder what another one carries beside its contents: extended attributes,
/// owner, permissions, times. What the destination's file system cannot hold is left out; any other
/// failure with an attribute "user.*" is an error. Set-user-id and set-group-id bits are copied
/// only when the owner could be.
[[nodiscard]] std::error_code copyMetadata(int from, const struct stat& status, int to);

/// The same for what cannot be opened: symbolic links, pipes, sockets, devices.
void copyNodeMetadata(const struct stat& status, int folder, const std::string& name);

/// The extended attributes alone, as far as they can be set.
void copyAttributes(int from, int to);

} // namespace tavrel
