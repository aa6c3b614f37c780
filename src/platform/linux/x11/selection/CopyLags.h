#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <utility>

namespace tavrel {

/// How long programs take to copy once they have handled the key, learned from their copies, so
/// that nothing selected is known soon for those that copy at once, and the others get their time.
class CopyLags {
public:
  /// How long to wait for a copy of this process: a tenth of a second while it has made none, then
  /// twice the longest lag, and `least` at least.
  [[nodiscard]] std::chrono::milliseconds settleTime(std::int32_t process,
                                                     std::chrono::milliseconds least) const;
  void noteCopy(std::int32_t process, std::chrono::milliseconds lag);

private:
  using Process = std::pair<std::int32_t, std::uint64_t>; ///< its number, and when it started
  std::map<Process, std::chrono::milliseconds> longest_;
};

} // namespace tavrel
