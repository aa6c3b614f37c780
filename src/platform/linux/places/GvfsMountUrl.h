#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// The URL of a mount of GVFS (the GNOME virtual file system) by its name in $XDG_RUNTIME_DIR/gvfs:
/// "sftp:host=example.org,user=me" gives "sftp://me@example.org/". Nothing for a mount that is not
/// on another machine, as a camera.
[[nodiscard]] std::optional<std::string> urlOfGvfsMount(std::string_view name);

} // namespace tavrel
