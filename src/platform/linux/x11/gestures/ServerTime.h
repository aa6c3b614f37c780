#pragma once

#include <cstdint>
#include <optional>

namespace tavrel {

/// The X server's time in seconds: its milliseconds begin anew every 49 days.
class ServerTime {
public:
  /// Since the first call.
  [[nodiscard]] double seconds(std::uint32_t milliseconds) {
    seconds_ += static_cast<std::int32_t>(milliseconds - last_.value_or(milliseconds)) / 1000.0;
    last_ = milliseconds;
    return seconds_;
  }

private:
  std::optional<std::uint32_t> last_;
  double seconds_ = 0;
};

} // namespace tavrel
