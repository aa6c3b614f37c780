#include "platform/linux/x11/gestures/LinuxHotKeys.h"

#include "platform/linux/x11/gestures/GestureKeyBuffer.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
#include "platform/linux/x11/server/QtConnection.h"

#include <QLoggingCategory>
#include <QTimer>

#include <algorithm>
#include <map>
#include <utility>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(hotKeyLog, "tavrel.hotkeys")

constexpr const char* noKeyHere =
    "this keyboard lacks a key of it, or Alt or Super; choose another one";
constexpr const char* anotherProgram =
    "another program has this key; choose another one, or end that program's use of it";
constexpr const char* anotherItem = "another item has this key; choose another one for either";

bool liesOnAnyOf(const ServerKeySet& keys, const std::vector<KeyGrab>& grabs) {
  return std::any_of(grabs.begin(), grabs.end(),
                     [&](const KeyGrab& grab) { return keys[grab.key]; });
}

bool has(const std::vector<KeyGrab>& grabs, const KeyGrab& wanted) {
  return std::ranges::find(grabs, wanted) != grabs.end();
}

bool hasAll(const std::vector<KeyGrab>& grabs, const std::vector<KeyGrab>& wanted) {
  return std::ranges::all_of(wanted, [&](const KeyGrab& each) { return has(grabs, each); });
}

std::vector<std::vector<KeyGrab>> byServerKey(const std::vector<KeyGrab>& grabs) {
  std::map<std::uint8_t, std::vector<KeyGrab>> keys;
  for (const KeyGrab& grab : grabs)
    keys[grab.key].push_back(grab);
  std::vector<std::vector<KeyGrab>> all;
  for (auto& [key, ofKey] : keys)
    all.push_back(std::move(ofKey));
  return all;
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
  if (!connection_)
    return;
  for (const Registered& key : registered_)
    ungrabKeys(*connection_, key.grabs);
  if (!registered_.empty())
    thawKeyboard(*connection_);
}

HotKeyRegistration LinuxHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                const EventHotKeyID& id) {
  registered_.push_back({keyCode, modifiers, ++lastReference_, id, {}});
  Registered& key = registered_.back();
  const char* why = grab(key);
  if (why)
    warnOf(key, why);
  return {why ? hotKeyStatus::taken : hotKeyStatus::registered, key.reference};
}

/// Null when it has a key, else the reason why not. What is grabbed already stays so.
const char* LinuxHotKeys::grab(Registered& key) {
  if (isAnotherItems(key))
    return anotherItem;
  const auto wanted = grabsFor(keys_, key.keyCode, key.modifiers);
  if (wanted.empty() || !connection_)
    return noKeyHere;
  const auto following = keyBuffer_ ? FollowingKeys::frozen : FollowingKeys::delivered;
  for (const std::vector<KeyGrab>& ofOneKey : byServerKey(wanted)) {
    if (hasAll(key.grabs, ofOneKey))
      continue;
    std::erase_if(key.grabs, [&](const KeyGrab& grab) { return grab.key == ofOneKey[0].key; });
    if (grabKeys(*connection_, ofOneKey, following))
      key.grabs.insert(key.grabs.end(), ofOneKey.begin(), ofOneKey.end());
  }
  return key.grabs.empty() ? anotherProgram : nullptr;
}

bool LinuxHotKeys::isAnotherItems(const Registered& key) const {
  return std::ranges::any_of(registered_, [&](const Registered& other) {
    return other.keyCode == key.keyCode && other.modifiers == key.modifiers &&
           other.reference != key.reference && !other.grabs.empty();
  });
}

OSStatus LinuxHotKeys::unregisterHotKey(EventHotKeyRef reference) {
  const auto found = std::find_if(registered_.begin(), registered_.end(),
                                  [&](const auto& key) { return key.reference == reference; });
  if (found == registered_.end())
    return hotKeyStatus::unknown;
  if (connection_)
    ungrabKeys(*connection_, found->grabs);
  registered_.erase(found);
  pressed_.forget(reference);
  return hotKeyStatus::registered;
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
  ServerKeys keys = serverKeys(*connection_);
  if (!keys.keymap)
    return; // between two keymaps: another change is to come
  keys_ = std::move(keys);
  std::vector<bool> worked;
  for (Registered& key : registered_) {
    worked.push_back(!key.grabs.empty());
    const auto wanted = grabsFor(keys_, key.keyCode, key.modifiers);
    const auto moved = std::stable_partition(
        key.grabs.begin(), key.grabs.end(), [&](const KeyGrab& each) { return has(wanted, each); });
    ungrabKeys(*connection_, std::vector<KeyGrab>(moved, key.grabs.end()));
    key.grabs.erase(moved, key.grabs.end());
  }
  for (std::size_t i = 0; i < registered_.size(); ++i)
    if (const char* why = grab(registered_[i]); why && worked[i])
      warnOf(registered_[i], why);
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
      if (key.grabs.clear(); const char* why = grab(key))
        warnOf(key, why);
}

void LinuxHotKeys::warnOf(const Registered& key, const char* why) {
  const std::string item = key.id.item.empty() ? "the menu" : '"' + key.id.item + '"';
  const std::string warning = "the shortcut \"" + key.id.shortcut + "\" of " + item + " (" +
                              combinationInWords(keys_, key.keyCode, key.modifiers) + "): " + why;
  if (warnings_.insert(warning).second)
    qCWarning(hotKeyLog, "%s", warning.c_str());
}

void LinuxHotKeys::hotKeyPressed() {
  if (keyBuffer_)
    keyBuffer_->start();
}

// Called while the toolkit reads events: what a hot key does may run the event loop, so it waits
// until that is over. One that was unregistered while it was down ends what its press began.
void LinuxHotKeys::hotKeyReleased(EventHotKeyRef reference) {
  const auto found = std::ranges::find(registered_, reference, &Registered::reference);
  released_.push_back(found == registered_.end() ? Released{noKey, 0}
                                                 : Released{found->keyCode, found->modifiers});
  if (released_.size() == 1)
    deliverLater();
}

// One at a time: after a burst, signals and the bus are served in between.
void LinuxHotKeys::deliverLater() {
  QTimer::singleShot(0, &context_, [this] {
    const Released key = released_.front();
    released_.pop_front();
    if (!released_.empty())
      deliverLater();
    deliver(key);
  });
}

void LinuxHotKeys::deliver(const Released& key) {
  const auto found = std::ranges::find_if(registered_, [&](const Registered& each) {
    return each.keyCode == key.keyCode && each.modifiers == key.modifiers && !each.grabs.empty();
  });
  Event release;
  release.type = EventType::systemDefined;
  release.subtype = hotKeyReleasedSubtype;
  if (keyBuffer_)
    keyBuffer_->actionBegins();
  if (target_ && found != registered_.end()) {
    release.data1 = found->reference;
    target_->sendEvent(release);
  }
  if (keyBuffer_)
    keyBuffer_->actionEnds();
}

} // namespace tavrel
