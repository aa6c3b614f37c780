#pragma once

#include "platform/Event.h"

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace tavrel {

struct Notification;

/// Watches the modifier keys of the whole system. When the same one is tapped twice quickly, alone,
/// it posts a notification under every name that a client registered for that modifier.
class NTModifierKeyActionHandler {
public:
  /// What its notifications name as their sender.
  static constexpr const char* sender = "NTModifierKeyActionHandler";

  /// Listens from now on. Where the desktop does not tell of modifiers, that is logged, and nothing
  /// is ever posted.
  NTModifierKeyActionHandler();
  NTModifierKeyActionHandler(const NTModifierKeyActionHandler&) = delete;
  NTModifierKeyActionHandler& operator=(const NTModifierKeyActionHandler&) = delete;

  /// `mask` in the interface form (base/Modifiers.h).
  void addClient(const std::string& name, std::int32_t mask);
  void removeClient(const std::string& name);

  /// The mask of a modifier key (interface form) and the other way round; 0 for every other key or
  /// mask.
  [[nodiscard]] static std::uint32_t keyMaskForKeyCode(std::uint32_t keyCode);
  [[nodiscard]] static std::uint32_t keyCodeForKeyMask(std::uint32_t mask);

  /// Takes a change of the modifier keys in. Blocks up to 0.2 s while the key is held: the next
  /// change must find this one decided.
  void handleModifierEvent(const Event& event);

  /// Whether the key, which must be down alone but for Caps Lock, is released within 0.2 s. Blocks
  /// until that is known.
  [[nodiscard]] bool checkForModifierRelease(std::uint32_t keyCode);

  void modifierFlagsChangedNotification(const Event& event);

private:
  void registerForGlobalModifiers();
  void post(const std::set<std::string>& names);
  void remember(std::uint32_t flags, double time);

  double lastModifierDownTime_ = 0;     ///< as the event monitor tells it
  std::uint32_t lastModifierFlags_ = 0; ///< of the first tap; 0: none is pending
  std::map<std::uint32_t, std::set<std::string>> notificationClients_;
  /// Expires with the handler: the event monitor, which outlives it, holds it weakly.
  std::shared_ptr<const char> alive_ = std::make_shared<const char>();
};

} // namespace tavrel
