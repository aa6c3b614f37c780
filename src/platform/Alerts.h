#pragma once

#include <cstdint>
#include <string>

namespace tavrel {

/// A question put to the user. An empty button text: no such button.
struct AlertPanel {
  std::string title;
  std::string message;
  std::string defaultButton;
  std::string alternateButton{};
  std::string otherButton{};
};

/// The button that was chosen. Closing the panel without one is the alternate answer, or the
/// default one when there is only that.
enum class AlertAnswer : std::int32_t { other = -1, alternate = 0, standard = 1 };

/// Modal panels.
class Alerts {
public:
  virtual ~Alerts() = default;

  /// Shows the panel in front of everything and returns with the answer. Timers and connections go
  /// on meanwhile.
  [[nodiscard]] virtual AlertAnswer run(const AlertPanel& panel) = 0;
};

} // namespace tavrel
