#include "platform/memory/MemoryHotKeys.h"

#include <algorithm>
#include <cstdio>

namespace tavrel {

HotKeyRegistration MemoryHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                 const EventHotKeyID& id) {
  if (control.onRegister)
    control.onRegister();
  char line[64];
  std::snprintf(line, sizeof line, "register %u 0x%X", keyCode, modifiers);
  control.log.emplace_back(line);
  if (control.refused.contains({keyCode, modifiers}))
    return {hotKeyStatus::taken, 0};
  control.registered.push_back({keyCode, modifiers, id, ++last_});
  return {hotKeyStatus::registered, last_};
}

OSStatus MemoryHotKeys::unregisterHotKey(EventHotKeyRef reference) {
  control.log.push_back("unregister " + std::to_string(reference));
  const auto found = std::find_if(control.registered.begin(), control.registered.end(),
                                  [&](const auto& key) { return key.reference == reference; });
  if (control.refusesToUnregister || found == control.registered.end())
    return hotKeyStatus::unknown;
  control.registered.erase(found);
  return hotKeyStatus::registered;
}

bool MemoryHotKeys::press(std::uint32_t keyCode, std::uint32_t modifiers) {
  const auto found =
      std::find_if(control.registered.begin(), control.registered.end(), [&](const auto& key) {
        return key.keyCode == keyCode && key.modifiers == modifiers;
      });
  if (found == control.registered.end())
    return false;
  Event release;
  release.type = EventType::systemDefined;
  release.subtype = hotKeyReleasedSubtype;
  release.data1 = found->reference;
  if (target_)
    target_->sendEvent(release);
  return true;
}

} // namespace tavrel
