#pragma once

#include "platform/linux/files/DesktopEntry.h"

#include <optional>
#include <string>

namespace tavrel {

/// As `readFile`, and nothing when the file system does not answer in time.
[[nodiscard]] std::optional<std::string> readFileWithTimeout(const std::string& path,
                                                             std::size_t limit);

/// As `loadDesktopEntry`, and nothing when the file system does not answer in time.
[[nodiscard]] std::optional<DesktopEntry> loadEntryWithTimeout(const std::string& path);

} // namespace tavrel
