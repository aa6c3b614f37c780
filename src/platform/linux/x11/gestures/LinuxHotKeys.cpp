#include "platform/linux/x11/gestures/LinuxHotKeys.h"

#include "platform/linux/x11/gestures/GestureKeyBuffer.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
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

bool liesOnAnyOf(const ServerKeySet& keys, const std::vector<KeyGrab>& grabs) {
  return std::any_of(grabs.begin(), grabs.end(),
                     [&](const KeyGrab& grab) { return keys[grab.key]; });
}
} // namespace

LinuxHotKeys::LinuxHotKeys(OwnKeystrokes& own, GestureKeyBuffer* keyBuffer)
    : own_(own), keyBuffer_(keyBuffer), connection_(qtConnection()),
      keys_(connection_ ? serverKeys(*connection_) : ServerKeys()),
      pressed_([this](auto key, auto modifiers) { return find(key, modifiers); },
               [this] { hotKeyPressed(); }, [this](auto reference) { hotKeyReleased(reference); }),
      layoutWatch_([this] { followLayout(); }) {
  own_.setHotKeySwitch([this](OwnKeystrokes::HotKeys state, const ServerKeySet& keys) {
    state == OwnKeystrokes::HotKeys::suspended ? suspend(keys) : resume(keys);
  });
}

LinuxHotKeys::~LinuxHotKeys() {
  own_.setHotKeySwitch({});
  for (const Registered& key : registered_)
    ungrabKeys(*connection_, key.grabs);
  if (!registered_.empty())
    thawKeyboard(*connection_);
}

HotKeyRegistration LinuxHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                EventHotKeyID) {
  Registered key{keyCode, modifiers, lastReference_ + 1, {}};
  if (const char* why = grab(key)) {
    warnOf(key, why);
    return {hotKeyStatus::taken, 0};
  }
  registered_.push_back(std::move(key));
  return {hotKeyStatus::registered, ++lastReference_};
}

/// Null when all combinations are grabbed, else the reason why not.
const char* LinuxHotKeys::grab(Registered& key) {
  const auto same = [&](const Registered& other) {
    return other.keyCode == key.keyCode && other.modifiers == key.modifiers &&
           other.reference != key.reference;
  };
  if (std::any_of(registered_.begin(), registered_.end(), same))
    return anotherItem;
  auto grabs = grabsFor(keys_, key.keyCode, key.modifiers);
  if (grabs.empty() || !connection_)
    return noKeyHere;
  if (!grabKeys(*connection_, grabs, keyBuffer_ ? FollowingKeys::frozen : FollowingKeys::delivered))
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
  pressed_.forget(reference);
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

// All that moved are ungrabbed before any is grabbed anew: two may have changed places. Those that
// stay are never ungrabbed, so that no press of theirs gets past.
void LinuxHotKeys::followLayout() {
  if (!connection_)
    return;
  keys_ = serverKeys(*connection_);
  std::vector<std::pair<Registered*, bool>> moving; // and whether it was grabbed before
  for (Registered& key : registered_) {
    if (!key.grabs.empty() && key.grabs == grabsFor(keys_, key.keyCode, key.modifiers))
      continue;
    moving.emplace_back(&key, !key.grabs.empty());
    ungrabKeys(*connection_, std::exchange(key.grabs, {}));
  }
  for (const auto& [key, worked] : moving)
    if (const char* why = grab(*key); why && worked)
      warnOf(*key, why);
}

void LinuxHotKeys::suspend(const ServerKeySet& keys) {
  for (const Registered& key : registered_)
    if (liesOnAnyOf(keys, key.grabs))
      ungrabKeys(*connection_, key.grabs);
}

// Another program may have grabbed the key meanwhile; then it is as refused as one that never was.
void LinuxHotKeys::resume(const ServerKeySet& keys) {
  for (Registered& key : registered_)
    if (liesOnAnyOf(keys, key.grabs))
      if (const char* why = grab(key)) {
        key.grabs.clear();
        warnOf(key, why);
      }
}

void LinuxHotKeys::warnOf(const Registered& key, const char* why) const {
  qCWarning(hotKeyLog, "%s: %s", combinationInWords(keys_, key.keyCode, key.modifiers).c_str(),
            why);
}

void LinuxHotKeys::hotKeyPressed() {
  if (keyBuffer_)
    keyBuffer_->start();
}

// Called while the toolkit reads events: what a hot key does may run the event loop, so it waits
// until that is over.
void LinuxHotKeys::hotKeyReleased(EventHotKeyRef reference) {
  released_.push_back(reference);
  if (released_.size() == 1)
    deliverLater();
}

// One at a time: after a burst, signals and the bus are served in between.
void LinuxHotKeys::deliverLater() {
  QTimer::singleShot(0, &context_, [this] {
    const EventHotKeyRef reference = released_.front();
    released_.pop_front();
    if (!released_.empty())
      deliverLater();
    deliver(reference);
  });
}

void LinuxHotKeys::deliver(EventHotKeyRef reference) {
  Event release;
  release.type = EventType::systemDefined;
  release.subtype = hotKeyReleasedSubtype;
  release.data1 = reference;
  if (keyBuffer_)
    keyBuffer_->actionBegins();
  if (target_ && isRegistered(reference))
    target_->sendEvent(release);
  if (keyBuffer_)
    keyBuffer_->actionEnds();
}

} // namespace tavrel
