#include "platform/macos/MacHotKeys.h"

#include <algorithm>
#include <iostream>

namespace tavrel {

MacHotKeys::MacHotKeys() : handler_([this](EventRef event) { take(event); }) {
  const ::OSStatus status =
      handler_.install(GetApplicationEventTarget(), {{kEventClassKeyboard, kEventHotKeyPressed},
                                                     {kEventClassKeyboard, kEventHotKeyReleased}});
  if (status != noErr)
    std::cerr << "tavrel: hot keys cannot be had\n";
}

MacHotKeys::~MacHotKeys() {
  for (const auto& [number, key] : registered_)
    UnregisterEventHotKey(key);
}

HotKeyRegistration MacHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                              const EventHotKeyID& id) {
  const ::EventHotKeyID ours{id.signature, ++last_};
  ::EventHotKeyRef key = nullptr;
  const ::OSStatus status =
      RegisterEventHotKey(keyCode, modifiers, ours, GetApplicationEventTarget(), 0, &key);
  if (status != noErr || !key)
    return {status != noErr ? status : hotKeyStatus::taken, 0};
  registered_.emplace(ours.id, key);
  return {hotKeyStatus::registered, ours.id};
}

OSStatus MacHotKeys::unregisterHotKey(EventHotKeyRef reference) {
  const auto found = registered_.find(reference);
  if (found == registered_.end())
    return hotKeyStatus::unknown;
  ::EventHotKeyRef const key = found->second;
  registered_.erase(found);
  return UnregisterEventHotKey(key);
}

std::optional<EventHotKeyRef> MacHotKeys::newsOf(std::uint64_t systemReference) {
  const auto found = std::ranges::find_if(registered_, [&](const auto& each) {
    return reinterpret_cast<std::uintptr_t>(each.second) == systemReference;
  });
  if (found == registered_.end() || !releases_.isFirst(found->first))
    return std::nullopt;
  return found->first;
}

void MacHotKeys::take(EventRef event) {
  ::EventHotKeyID id{};
  const ::OSStatus status = GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID,
                                              nullptr, sizeof id, nullptr, &id);
  const EventHotKeyRef reference = id.id;
  if (status != noErr || !registered_.contains(reference))
    return;
  if (GetEventKind(event) == kEventHotKeyPressed)
    return releases_.pressed(reference);
  if (!releases_.isFirst(reference) || !target_)
    return;
  Event release;
  release.type = EventType::systemDefined;
  release.subtype = hotKeyReleasedSubtype;
  release.data1 = reference;
  target_->sendEvent(release);
}

} // namespace tavrel
