#pragma once

#include <string>

namespace tavrel {

/// Who the contextual-menu plug-in says it is: the object of its notifications.
inline constexpr const char* contextMenuSender = "qorvane.tavrel.cm";

/// What the contextual-menu plug-in may ask for, by the name of the notification.
enum class BridgeMessage {
  execScript,
  quitProcess,
  execServices,
  openWithPathFinder,
  revealInFinder,
  showMessage,
  unknown,
};

[[nodiscard]] BridgeMessage bridgeMessage(const std::string& name);

} // namespace tavrel
