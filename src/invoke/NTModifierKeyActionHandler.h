#pragma once

#include "platform/Event.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace tavrel {

/// Watches the modifier keys of the whole system; when the same one is tapped twice quickly, alone,
/// it posts a notification under every name that a client registered for that modifier.
class NTModifierKeyActionHandler {
public:
  /// `mask` in the interface form (base/Modifiers.h).
  void addClient(const std::string& name, std::uint32_t mask);
  void removeClient(const std::string& name);

private:
  double lastModifierDownTime_ = 0;
  std::uint32_t lastModifierFlags_ = 0; ///< of the first tap; 0: none is pending
  std::map<std::uint32_t, std::set<std::string>> notificationClients_;
};

} // namespace tavrel
