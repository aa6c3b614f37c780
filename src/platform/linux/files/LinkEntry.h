#pragma once

#include "platform/linux/files/DesktopEntry.h"

namespace tavrel {

/// Whether a path has the ending of desktop entries, ".desktop".
[[nodiscard]] bool hasEntryEnding(std::string_view path);

/// The local path that an entry of the type Link leads to; nothing for any other entry and for a
/// URL elsewhere.
[[nodiscard]] std::optional<std::string> linkTarget(const DesktopEntry& entry);

} // namespace tavrel
