#pragma once

#include <cstdint>
#include <optional>

namespace tavrel {

/// The X server's time in seconds: its milliseconds begin anew every 49 days.
class ServerTime {
public:
  /// Since the first call.
  [[nodiscard]] double seconds(std::uint32_t milliseconds) {
    const std::uint32_t passed = milliseconds - last_.value_or(milliseconds);
    const bool isEarlier = passed > 0U - mostDisorder; // events of two devices may come in disorder
    seconds_ += isEarlier ? -(0U - passed) / 1000.0 : passed / 1000.0;
    last_ = milliseconds;
    return seconds_;
  }

private:
  static constexpr std::uint32_t mostDisorder = 60'000;
  std::optional<std::uint32_t> last_;
  double seconds_ = 0;
};

} // namespace tavrel
