#pragma once

#include <string>

namespace tavrel {

/// Whether the file system that a path lies on answers: false for a share whose server is gone, so
/// that nobody goes on to wait for it for ever. Goes by the path as it is written. Only distant
/// file systems are asked, each at most once in a few seconds, and waited for a second; one that
/// does not answer is a line on standard error, and is not waited for again until it does.
[[nodiscard]] bool fileSystemAnswers(const std::string& path);

} // namespace tavrel
