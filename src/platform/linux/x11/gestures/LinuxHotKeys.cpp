#include "platform/linux/x11/gestures/LinuxHotKeys.h"

#include "platform/linux/x11/gestures/GestureKeyBuffer.h"
#include "platform/linux/x11/server/QtConnection.h"

#include <QLoggingCategory>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(hotKeyLog, "tavrel.hotkeys")

constexpr const char* noKeyHere = "this keyboard has no such key";
constexpr const char* anotherProgram = "another program has this key";
constexpr const char* anotherItem = "another item has this key";
} // namespace

LinuxHotKeys::LinuxHotKeys(GestureKeyBuffer* hold)
    : hold_(hold), connection_(qtConnection()),
      keys_(connection_ ? serverKeys(*connection_) : ServerKeys()),
      held_([this](auto key, auto modifiers) { return find(key, modifiers); },
            [this] { tellPressed(); }, [this](auto reference) { tellReleased(reference); }),
      layout_([this] { follow(); }) {}

LinuxHotKeys::~LinuxHotKeys() {
  for (const Registered& key : registered_)
    ungrabKeys(*connection_, key.grabs);
  if (!registered_.empty())
    letKeysThrough(*connection_);
}

HotKeyRegistration LinuxHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                EventHotKeyID) {
  Registered key{keyCode, modifiers, last_ + 1, {}};
  if (const char* why = take(key)) {
    refuse(key, why);
    return {hotKeyStatus::taken, 0};
  }
  registered_.push_back(std::move(key));
  return {hotKeyStatus::registered, ++last_};
}

/// Null when it worked, else why not.
const char* LinuxHotKeys::take(Registered& key) {
  const auto same = [&](const Registered& other) {
    return other.keyCode == key.keyCode && other.modifiers == key.modifiers &&
           other.reference != key.reference;
  };
  if (std::any_of(registered_.begin(), registered_.end(), same))
    return anotherItem;
  auto grabs = grabsFor(keys_, key.keyCode, key.modifiers);
  if (grabs.empty() || !connection_)
    return noKeyHere;
  if (!grabKeys(*connection_, grabs, hold_ ? FollowingKeys::wait : FollowingKeys::comeAtOnce))
    return anotherProgram;
  key.grabs = std::move(grabs);
  return nullptr;
}

OSStatus LinuxHotKeys::unregisterHotKey(EventHotKeyRef reference) {
  const auto found = std::find_if(registered_.begin(), registered_.end(),
                                  [&](const auto& key) { return key.reference == reference; });
  if (found == registered_.end())
    return hotKeyStatus::unknown;
  ungrabKeys(*connection_, found->grabs);
  registered_.erase(found);
  held_.forget(reference);
  return hotKeyStatus::registered;
}

bool LinuxHotKeys::isRegistered(EventHotKeyRef reference) const {
  return std::any_of(registered_.begin(), registered_.end(),
                     [&](const Registered& key) { return key.reference == reference; });
}

EventHotKeyRef LinuxHotKeys::find(std::uint8_t key, std::uint16_t modifiers) const {
  const KeyGrab pressed{key, modifiers};
  for (const Registered& candidate : registered_)
    if (std::find(candidate.grabs.begin(), candidate.grabs.end(), pressed) != candidate.grabs.end())
      return candidate.reference;
  return 0;
}

// All that move are given up before any is taken: two may have changed places. Those that stay are
// not let go for a moment.
void LinuxHotKeys::follow() {
  if (!connection_)
    return;
  keys_ = serverKeys(*connection_);
  std::vector<std::pair<Registered*, bool>> moving; // and whether it worked before
  for (Registered& key : registered_) {
    if (!key.grabs.empty() && key.grabs == grabsFor(keys_, key.keyCode, key.modifiers))
      continue;
    moving.emplace_back(&key, !key.grabs.empty());
    ungrabKeys(*connection_, std::exchange(key.grabs, {}));
  }
  for (const auto& [key, worked] : moving)
    if (const char* why = take(*key); why && worked)
      refuse(*key, why);
}

void LinuxHotKeys::refuse(const Registered& key, const char* why) const {
  qCWarning(hotKeyLog, "%s: %s", combinationInWords(keys_, key.keyCode, key.modifiers).c_str(),
            why);
}

void LinuxHotKeys::tellPressed() {
  if (hold_)
    hold_->begin();
}

// Not from within the toolkit's reading of events: what a hot key does may run the event loop.
void LinuxHotKeys::tellReleased(EventHotKeyRef reference) {
  QTimer::singleShot(0, &eventLoop_, [this, reference] {
    Event release;
    release.type = EventType::systemDefined;
    release.subtype = hotKeyReleasedSubtype;
    release.data1 = reference;
    if (hold_)
      hold_->actBegins();
    if (target_ && isRegistered(reference))
      target_->sendEvent(release);
    if (hold_)
      hold_->actEnds();
  });
}

} // namespace tavrel
