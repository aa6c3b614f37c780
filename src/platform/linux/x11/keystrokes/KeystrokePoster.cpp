#include "platform/linux/x11/keystrokes/KeystrokePoster.h"

#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/applications/TerminalWindows.h"
#include "platform/linux/x11/keyboard/KeyboardGrab.h"
#include "platform/linux/x11/windows/DesktopWindows.h"

#include <QElapsedTimer>

#include <chrono>
#include <optional>
#include <set>
#include <thread>
#include <utility>

namespace tavrel {

namespace {

using namespace std::chrono_literals;

constexpr auto longestChord = 100ms;
constexpr auto betweenLooksAtHeldKeys = 10ms;
constexpr qint64 longestActivation = 100; // in milliseconds

bool isFinished(const std::vector<KeyboardEvent>& events) {
  std::set<std::uint16_t> down;
  for (const KeyboardEvent& event : events)
    if (event.direction == KeyDirection::down)
      down.insert(event.keyCode);
    else
      down.erase(event.keyCode);
  return down.empty();
}

std::vector<ServerKey> keysGoing(const ServerKeySet& keys, KeyDirection direction) {
  std::vector<ServerKey> all;
  for (std::size_t code = 0; code < keys.size(); ++code)
    if (keys[code])
      all.push_back({static_cast<std::uint8_t>(code), direction});
  return all;
}

ServerKeySet codesOf(const KeyChord& chord) {
  ServerKeySet codes;
  for (const ServerKey& key : chord.keys)
    codes.set(key.code);
  return codes;
}

} // namespace

KeystrokePoster::KeystrokePoster(ApplicationRegistry& registry, DesktopWindows& windows,
                                 OwnKeystrokes& own)
    : registry_(registry), windows_(windows), own_(own) {
  unfinished_.setSingleShot(true);
  unfinished_.setInterval(longestChord);
  unfinished_.callOnTimeout([this] { sendChord(); });
  held_.setInterval(betweenLooksAtHeldKeys);
  held_.callOnTimeout([this] { liftWhatThePersonLeft(); });
}

bool KeystrokePoster::hasServer() {
  if (!server_)
    server_ = KeystrokeServer::create();
  if (server_ && !server_->isThere())
    server_.reset();
  return server_ != nullptr;
}

bool KeystrokePoster::post(std::int32_t process, const KeyboardEvent& event) {
  if (!hasServer())
    return false;
  if (!gathered_.empty() && process != process_)
    sendChord();
  process_ = process;
  if (gathered_.empty())
    unfinished_.start();
  gathered_.push_back(event);
  if (isFinished(gathered_))
    sendChord();
  return true;
}

void KeystrokePoster::sendChord() {
  unfinished_.stop();
  const XkbKeymap keymap = hasServer() ? server_->keymap() : nullptr;
  const std::vector<KeyboardEvent> events = std::exchange(gathered_, {});
  if (!keymap)
    return;
  bringToFront();
  const std::uint32_t group = server_->group();
  const TypingLayout layout{*keymap, group, server_->capsLockIsOn() ? CapsLock::on : CapsLock::off};
  typeChord(keyChord(events, layout, receiver()), server_->modifierKeys(*keymap), group);
}

// What we hold down for the person must be up, too: it would not go down again for the chord.
void KeystrokePoster::typeChord(const KeyChord& chord, const ServerKeySet& modifiers,
                                std::uint32_t group) {
  own_.begin();
  std::optional<PhysicalKeyboards> pressed;
  if (KeyboardGrab::isHeld())
    pressed.emplace(server_->connection());
  KeyboardGrab::letGo(); // a hot key's grab, too, is on the toolkit's connection
  const ServerKeySet inTheWay = pressed ? ~ServerKeySet() : modifiers | codesOf(chord);
  const ServerKeySet lifted = server_->down() & inTheWay; // the server may miss its going up
  server_->send(keysGoing(lifted | std::exchange(putBack_, {}), KeyDirection::up));
  if (chord.group != group)
    server_->lockGroup(chord.group);
  server_->send(chord.keys);
  if (chord.group != group)
    server_->lockGroup(group);
  server_->roundTrip();
  ServerKeySet touched = lifted;
  if (pressed)
    touched |= holdAgain(*pressed);
  putBack(touched & modifiers);
  own_.end();
}

// What the person types is for the menu, during the chord, too.
ServerKeySet KeystrokePoster::holdAgain(PhysicalKeyboards& pressed) {
  KeyboardGrab::take();
  RecordedKeyEvents missed = pressed.take();
  KeyboardGrab::tellOf(missed);
  pressed.letGo();
  const RecordedKeyEvents last = pressed.take();
  KeyboardGrab::tellOf(last);
  missed.insert(missed.end(), last.begin(), last.end());
  ServerKeySet touched;
  for (const xcb_key_press_event_t& event : missed)
    touched.set(event.detail);
  return touched;
}

void KeystrokePoster::retype(const RecordedKeyEvents& typed) {
  const XkbKeymap keymap = hasServer() ? server_->keymap() : nullptr;
  if (!keymap)
    return;
  const ServerKeySet down = server_->down();
  const ServerKeySet modifiers = server_->modifierKeys(*keymap);
  const auto keys = keysToRetype(typed, down, modifiers, server_->lockKeys(*keymap));
  if (keys.empty())
    return;
  own_.begin();
  ServerKeySet lifted = down & modifiers;
  for (const ServerKey& key : keys)
    lifted.set(key.code, down[key.code]);
  server_->send(keysGoing(lifted | std::exchange(putBack_, {}), KeyDirection::up));
  server_->send(keys);
  server_->roundTrip();
  putBack(lifted & modifiers);
  own_.end();
}

// A key that came up meanwhile, or never was down but for a program's sake, stays up.
void KeystrokePoster::putBack(const ServerKeySet& lifted) {
  putBack_ = lifted & server_->physicallyDown();
  server_->send(keysGoing(putBack_, KeyDirection::down));
  server_->roundTrip();
  liftWhatThePersonLeft();
}

// The key goes up on the person's keyboard, but what we pressed stays down on the one we post with.
void KeystrokePoster::liftWhatThePersonLeft() {
  const ServerKeySet left = hasServer() ? putBack_ & ~server_->physicallyDown() : putBack_;
  putBack_ &= ~left;
  if (putBack_.none())
    held_.stop();
  else if (!held_.isActive())
    held_.start();
  if (left.none() || !server_)
    return;
  const bool isOwnPhase = own_.areBeingPosted();
  if (!isOwnPhase)
    own_.begin();
  server_->send(keysGoing(left, KeyDirection::up));
  server_->roundTrip();
  if (!isOwnPhase)
    own_.end();
}

bool KeystrokePoster::isInFront() {
  const auto facts = windows_.facts(windows_.activeWindow());
  return facts && facts->pid == process_;
}

// A process without a window of its own may still have the keys that whoever is in front gets.
void KeystrokePoster::bringToFront() {
  if (process_ <= 0 || isInFront())
    return;
  const std::vector<WindowId> stacking = windows_.stacking();
  for (auto window = stacking.rbegin(); window != stacking.rend(); ++window) {
    const auto facts = windows_.facts(*window);
    if (!facts || facts->pid != process_ || facts->kind != WindowKind::ordinary)
      continue;
    QElapsedTimer waiting;
    waiting.start();
    if (!windows_.activate(*window))
      return;
    while (!isInFront() && waiting.elapsed() < longestActivation)
      std::this_thread::sleep_for(1ms);
    return;
  }
}

KeyReceiver KeystrokePoster::receiver() {
  const auto facts = windows_.facts(windows_.activeWindow());
  if (facts && isBareTerminal(*facts))
    return KeyReceiver::bareTerminal;
  return facts && isTerminal(*facts, registry_) ? KeyReceiver::terminal : KeyReceiver::application;
}

} // namespace tavrel
