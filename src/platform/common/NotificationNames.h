#pragma once

#include <string>
#include <vector>

namespace tavrel {

/// The names that notifications of a sender are known to have, for desktops that tell nothing to an
/// observer that names none; empty for a sender that nobody knows. The preference pane may use any
/// name: with its own it is heard everywhere.
[[nodiscard]] std::vector<std::string> knownNotificationNames(const std::string& sender);

} // namespace tavrel
