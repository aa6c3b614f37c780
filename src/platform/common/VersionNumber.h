#pragma once

#include <cstdint>

namespace tavrel {

/// A system's version, split into its numbers.
struct VersionNumber {
  std::int64_t major = 0;
  std::int64_t minor = 0;
  std::int64_t patch = 0;
};

/// The version as a BCD number: two digits of the major part, one of each of the others, the parts
/// that have more saturated. 10.6.8 gives 0x1068, 10.10.5 gives 0x1095, 14.2.1 gives 0x1421.
[[nodiscard]] std::int32_t bcdVersion(const VersionNumber& version);

} // namespace tavrel
