#include "bridge/BridgeMessage.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tavrel {

namespace {
constexpr auto messages = std::to_array<std::pair<const char*, BridgeMessage>>({
    {"execScript", BridgeMessage::execScript},
    {"quitProcess", BridgeMessage::quitProcess},
    {"execServices", BridgeMessage::execServices},
    {"openWithPathFinder", BridgeMessage::openWithPathFinder},
    {"revealInFinder", BridgeMessage::revealInFinder},
    {"showMessage", BridgeMessage::showMessage},
});
}

BridgeMessage bridgeMessage(const std::string& name) {
  const auto* found =
      std::ranges::find_if(messages, [&](const auto& message) { return name == message.first; });
  return found == messages.end() ? BridgeMessage::unknown : found->second;
}

} // namespace tavrel
