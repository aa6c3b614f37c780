#pragma once

#include "platform/Scripts.h"

#include <Carbon/Carbon.h>

#include <cstdint>
#include <optional>
#include <string>

namespace tavrel {

/// Storing was refused, or the file is not the one that was loaded.
inline constexpr OSAError cannotWriteScript = -61;

/// Identifies the contents of a file: it differs once the file has been written to.
struct FileState {
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;
  std::int64_t size = 0;
  std::uint64_t inode = 0;
  friend bool operator==(const FileState&, const FileState&) = default;
};

/// Nothing when no file is there.
[[nodiscard]] std::optional<FileState> stateOf(const std::string& path);

/// The file as the scripting component wants it named; nothing when none is there.
[[nodiscard]] std::optional<FSRef> referenceTo(const std::string& path);

/// Stores a script over a file that is there. On failure the file is as it was.
[[nodiscard]] OSAError storeScript(::ComponentInstance component, ::OSAID script,
                                   const std::string& path);

} // namespace tavrel
