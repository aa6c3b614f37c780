#include "platform/common/VersionNumber.h"

#include <algorithm>

namespace tavrel {

std::int32_t bcdVersion(const VersionNumber& version) {
  const auto major = std::clamp<std::int64_t>(version.major, 0, 99);
  const auto minor = std::clamp<std::int64_t>(version.minor, 0, 9);
  const auto patch = std::clamp<std::int64_t>(version.patch, 0, 9);
  return static_cast<std::int32_t>((major / 10) << 12 | (major % 10) << 8 | minor << 4 | patch);
}

} // namespace tavrel
