#include "platform/macos/MacHotKeys.h"

#include <algorithm>
#include <cstdio>

namespace tavrel {

namespace {
EventHotKeyRef referenceOf(::EventHotKeyRef key) {
  return reinterpret_cast<std::uintptr_t>(key);
}
} // namespace

MacHotKeys::MacHotKeys() : handler_([this](EventRef event) { take(event); }) {
  const ::OSStatus status =
      handler_.install(GetApplicationEventTarget(), {{kEventClassKeyboard, kEventHotKeyPressed},
                                                     {kEventClassKeyboard, kEventHotKeyReleased}});
  if (status != noErr)
    std::fputs("tavrel: hot keys cannot be had\n", stderr);
}

MacHotKeys::~MacHotKeys() {
  for (const auto& [number, key] : registered_)
    UnregisterEventHotKey(key);
}

HotKeyRegistration MacHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                              EventHotKeyID id) {
  const ::EventHotKeyID ours{id.signature, ++last_};
  ::EventHotKeyRef key = nullptr;
  const ::OSStatus status =
      RegisterEventHotKey(keyCode, modifiers, ours, GetApplicationEventTarget(), 0, &key);
  if (status != noErr || !key)
    return {status != noErr ? status : hotKeyStatus::taken, 0};
  registered_.emplace(ours.id, key);
  releases_.pressed(referenceOf(key)); // the system may give a reference out again
  return {hotKeyStatus::registered, referenceOf(key)};
}

OSStatus MacHotKeys::unregisterHotKey(EventHotKeyRef reference) {
  const auto found = std::find_if(registered_.begin(), registered_.end(), [&](const auto& entry) {
    return referenceOf(entry.second) == reference;
  });
  if (found == registered_.end())
    return hotKeyStatus::unknown;
  ::EventHotKeyRef const key = found->second;
  registered_.erase(found);
  return UnregisterEventHotKey(key);
}

void MacHotKeys::take(EventRef event) {
  ::EventHotKeyID id{};
  const ::OSStatus status = GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID,
                                              nullptr, sizeof id, nullptr, &id);
  const auto found = registered_.find(id.id);
  if (status != noErr || found == registered_.end())
    return;
  const EventHotKeyRef reference = referenceOf(found->second);
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
