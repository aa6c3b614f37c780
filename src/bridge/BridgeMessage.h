#pragma once

#include <string>

namespace tavrel {

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
