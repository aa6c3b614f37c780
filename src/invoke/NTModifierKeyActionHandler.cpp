#include "invoke/NTModifierKeyActionHandler.h"

#include "base/Modifiers.h"
#include "invoke/KeyMapSets.h"
#include "invoke/ModifierMasks.h"
#include "platform/Clock.h"
#include "platform/EventMonitor.h"
#include "platform/Keyboard.h"
#include "platform/NotificationCenter.h"
#include "platform/Platform.h"
#include "platform/SystemLog.h"

#include <algorithm>
#include <array>

namespace tavrel {

namespace {
constexpr std::uint32_t modifierBits = 0xFFFE0000; // without caps lock and what is below it
constexpr double pollInterval = 0.01;

struct KeyMask {
  std::uint32_t code;
  std::uint32_t mask;
};

constexpr auto keyMasks = std::to_array<KeyMask>({
    {keyCode::command, modifier::command},
    {keyCode::shift, modifier::shift},
    {keyCode::capsLock, modifier::capsLock},
    {keyCode::option, modifier::option},
    {keyCode::control, modifier::control},
    {keyCode::function, modifier::function},
});

bool isOneModifier(std::uint32_t flags) {
  return std::any_of(keyMasks.begin(), keyMasks.end(),
                     [&](const KeyMask& each) { return each.mask == flags; });
}

KeyMap everyKeyBut(std::uint32_t keyCode) {
  KeyMap others;
  keyMapInit(others);
  keyMapAddKeyCode(others, keyCode);
  keyMapAddKeyCode(others, keyCode::capsLock);
  keyMapInvert(others);
  return others;
}

Event flagsChangedAt(double time) {
  Event event;
  event.type = EventType::flagsChanged;
  event.modifierFlags =
      carbonModifierFlagsToCocoaModifierFlags(platform().keyboard.eventModifiers());
  event.timestamp = time;
  return event;
}
} // namespace

NTModifierKeyActionHandler::NTModifierKeyActionHandler() {
  registerForGlobalModifiers();
}

void NTModifierKeyActionHandler::registerForGlobalModifiers() {
  const OSStatus status = platform().eventMonitor.installModifierHandler(
      [this, alive = std::weak_ptr(alive_)](double time) {
        if (!alive.expired())
          handleModifierEvent(flagsChangedAt(time));
      });
  if (status != 0)
    platform().log.write(std::string("InstallEventHandler err ").append(std::to_string(status)));
}

void NTModifierKeyActionHandler::addClient(const std::string& name, std::int32_t mask) {
  notificationClients_[static_cast<std::uint32_t>(mask)].insert(name);
}

void NTModifierKeyActionHandler::removeClient(const std::string& name) {
  for (auto& [mask, names] : notificationClients_)
    names.erase(name);
}

std::uint32_t NTModifierKeyActionHandler::keyMaskForKeyCode(std::uint32_t keyCode) {
  const auto found = std::find_if(keyMasks.begin(), keyMasks.end(),
                                  [&](const KeyMask& each) { return each.code == keyCode; });
  return found == keyMasks.end() ? 0 : found->mask;
}

std::uint32_t NTModifierKeyActionHandler::keyCodeForKeyMask(std::uint32_t mask) {
  const auto found = std::find_if(keyMasks.begin(), keyMasks.end(),
                                  [&](const KeyMask& each) { return each.mask == mask; });
  return found == keyMasks.end() ? 0 : found->code;
}

void NTModifierKeyActionHandler::handleModifierEvent(const Event& event) {
  const std::uint32_t flags = event.modifierFlags & modifierBits;
  const auto clients = notificationClients_.find(flags);
  if (flags == 0 || clients == notificationClients_.end() || clients->second.empty())
    return;
  const double time = event.timestamp;
  if (!isOneModifier(flags) || !checkForModifierRelease(keyCodeForKeyMask(flags)))
    return remember(0, time);
  if (lastModifierFlags_ != flags || time - lastModifierDownTime_ >= doubleTapInterval)
    return remember(flags, time);
  lastModifierDownTime_ = time;
  post(std::set(clients->second)); // a copy: a handler may remove clients
  lastModifierFlags_ = 0;
}

void NTModifierKeyActionHandler::remember(std::uint32_t flags, double time) {
  lastModifierDownTime_ = time;
  lastModifierFlags_ = flags;
}

void NTModifierKeyActionHandler::post(const std::set<std::string>& names) {
  for (const std::string& name : names)
    platform().notifications.post({name, sender, {}});
}

bool NTModifierKeyActionHandler::checkForModifierRelease(std::uint32_t keyCode) {
  Keyboard& keyboard = platform().keyboard;
  Clock& clock = platform().clock;
  const KeyMap others = everyKeyBut(keyCode);
  const KeyMap first = keyboard.keyMap();
  if (!first.isDown(keyCode) || keyMapAND(first, others))
    return false;
  const double start = clock.now();
  while (clock.now() - start < longestTap) {
    const KeyMap now = keyboard.keyMap();
    if (keyMapAND(now, others))
      return false;
    if (!now.isDown(keyCode))
      return true;
    clock.sleep(pollInterval);
  }
  return false;
}

void NTModifierKeyActionHandler::modifierFlagsChangedNotification(const Event& event) {
  platform().log.write("modifierFlagsChangedNotification");
  handleModifierEvent(event);
}

} // namespace tavrel
