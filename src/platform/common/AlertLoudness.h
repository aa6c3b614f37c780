#pragma once

#include <cstdint>

namespace tavrel {

/// Between a loudness from 0 (silent) to 1 and the volume that the sounds port speaks of. A
/// loudness that is set again comes out as it was to within a part in a million; one that can be
/// heard never comes out silent, and NaN counts as silent.
[[nodiscard]] std::int32_t volumeOfLoudness(float loudness);
[[nodiscard]] float loudnessOfVolume(std::int32_t volume);

} // namespace tavrel
