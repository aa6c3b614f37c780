#pragma once

#include "platform/linux/files/DesktopEntry.h"

namespace tavrel {

/// Whether a path ends in ".desktop", as desktop entries do.
[[nodiscard]] bool hasEntryEnding(std::string_view path);

/// The local path that an entry of the type Link leads to; nothing for another type and for a URL
/// of another machine.
[[nodiscard]] std::optional<std::string> linkTarget(const DesktopEntry& entry);

} // namespace tavrel
