#pragma once

#include "platform/Alerts.h"

#include <string>
#include <vector>

namespace tavrel {

struct AlertButton {
  std::string title;
  AlertAnswer answer{};
};

/// The buttons that a panel has, in the order in which they are added to it: default, alternate,
/// other.
[[nodiscard]] std::vector<AlertButton> alertButtons(const AlertPanel& panel);

/// The answer of a panel that was closed without a button.
[[nodiscard]] AlertAnswer answerWithoutButton(const AlertPanel& panel);

} // namespace tavrel
