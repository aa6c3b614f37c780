#include "platform/common/AlertLoudness.h"

#include <algorithm>
#include <cmath>

namespace tavrel {

namespace {
constexpr float loudestVolume = 1048576;
}

std::int32_t volumeOfLoudness(float loudness) {
  if (!(loudness > 0))
    return 0;
  return static_cast<std::int32_t>(
      std::clamp(std::round(loudness * loudestVolume), 1.0F, loudestVolume));
}

float loudnessOfVolume(std::int32_t volume) {
  return std::clamp(static_cast<float>(volume) / loudestVolume, 0.0F, 1.0F);
}

} // namespace tavrel
