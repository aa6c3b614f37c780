#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tavrel {

/// The content of a regular file. Nothing when it is none (pipes and devices are never opened:
/// that alone can block or act), cannot be read, or is larger than `limit` bytes.
[[nodiscard]] std::optional<std::string> readFile(const std::string& path, std::size_t limit);

/// The first `count` bytes of a regular file, fewer of a shorter one; nothing as above.
[[nodiscard]] std::optional<std::string> readStart(const std::string& path, std::size_t count);

/// The same of what was a regular file a moment ago, which saves a question. Should it be a pipe by
/// now, nothing waits for its other end.
[[nodiscard]] std::optional<std::string> readStartOfRegular(const std::string& path,
                                                            std::size_t count);

} // namespace tavrel
