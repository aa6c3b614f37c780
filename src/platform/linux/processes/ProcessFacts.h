#pragma once

#include <cstdint>
#include <string>

namespace tavrel {

/// The program a process runs, as an absolute path; empty for a process of another user, which may
/// not be asked, and for one that is gone.
[[nodiscard]] std::string executableOf(std::int32_t pid);

/// When a process started, in clock ticks since the machine did; 0 when it is gone.
[[nodiscard]] std::uint64_t startTimeOf(std::int32_t pid);

} // namespace tavrel
