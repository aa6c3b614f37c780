#pragma once

#include <cstdint>

namespace tavrel {

/// Now, in the clock ticks since the machine started in which `startTimeOf` tells times.
[[nodiscard]] std::uint64_t ticksSinceBoot();

/// To be called before this program starts another one. By any thread, like `lastProgramStart`.
void noteProgramStart();

/// When that was last; 0 for never.
[[nodiscard]] std::uint64_t lastProgramStart();

} // namespace tavrel
