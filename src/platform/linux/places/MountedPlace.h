#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// The URL of a mount of the GNOME virtual file system, by the name it has in the folder of mounts:
/// "sftp:host=example.org,user=me" gives "sftp://me@example.org/". Nothing for a mount that is no
/// place on another machine.
[[nodiscard]] std::optional<std::string> urlOfMount(std::string_view name);

} // namespace tavrel
