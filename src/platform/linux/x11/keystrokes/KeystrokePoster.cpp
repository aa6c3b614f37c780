#include "platform/linux/x11/keystrokes/KeystrokePoster.h"

#include "platform/linux/x11/keyboard/KeyboardGrab.h"
#include "platform/linux/x11/windows/DesktopWindows.h"

#include <QElapsedTimer>

#include <algorithm>
#include <chrono>
#include <optional>
#include <set>
#include <thread>
#include <utility>

namespace tavrel {

namespace {

using namespace std::chrono_literals;

constexpr int mostTurns = 3; ///< of restoring what the user changes meanwhile
constexpr auto chordTime = 100ms;
constexpr auto releasePollInterval = 10ms;
constexpr qint64 activationTimeout = 100; // in milliseconds

bool isFinished(const std::vector<KeyboardEvent>& events) {
  std::set<std::uint16_t> down;
  for (const KeyboardEvent& event : events)
    if (event.direction == KeyDirection::down)
      down.insert(event.keyCode);
    else
      down.erase(event.keyCode);
  return down.empty();
}

std::vector<ServerKey> keyEvents(const ServerKeySet& keys, KeyDirection direction) {
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

KeystrokePoster::KeystrokePoster(DesktopWindows& windows, OwnKeystrokes& own)
    : windows_(windows), own_(own) {
  chordTimeout_.setSingleShot(true);
  chordTimeout_.setInterval(chordTime);
  chordTimeout_.callOnTimeout([this] { sendChord(); });
  releasePoll_.setInterval(releasePollInterval);
  releasePoll_.callOnTimeout([this] { releaseWithUser(); });
}

KeystrokePoster::~KeystrokePoster() {
  if (pressedAgain_.none() || !hasServer())
    return;
  own_.begin();
  server_->send(keyEvents(pressedAgain_, KeyDirection::up));
  server_->roundTrip();
  own_.end();
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
  if (!pendingEvents_.empty() && process != process_)
    sendChord();
  process_ = process;
  if (pendingEvents_.empty())
    chordTimeout_.start();
  pendingEvents_.push_back(event);
  if (isFinished(pendingEvents_))
    sendChord();
  return true;
}

void KeystrokePoster::sendChord() {
  chordTimeout_.stop();
  const std::vector<KeyboardEvent> events = std::exchange(pendingEvents_, {});
  const KeyPurpose purpose = events.front().purpose;
  const bool isForSelection =
      purpose == KeyPurpose::copySelection || purpose == KeyPurpose::pasteSelection;
  if (isForSelection && selectionHandler_)
    return selectionHandler_(purpose, process_);
  const XkbKeymap keymap = hasServer() ? server_->keymap() : nullptr;
  if (!keymap)
    return;
  bringToFront(process_);
  const KeyChord chord = chordNow(events, *keymap);
  if (chord.isWhole) // a part of it could be a command
    (void)type({chord, server_->modifierKeys(*keymap), server_->group(), 0}, [] {});
}

KeyChord KeystrokePoster::chordNow(const std::vector<KeyboardEvent>& events, xkb_keymap& keymap) {
  const TypingLayout layout{keymap, server_->group(),
                            server_->capsLockIsOn() ? CapsLock::on : CapsLock::off};
  return keyChord(events, layout);
}

bool KeystrokePoster::typeTo(WindowId window, const std::vector<KeyboardEvent>& chord,
                             const std::function<void()>& meanwhile) {
  const XkbKeymap keymap = hasServer() ? server_->keymap() : nullptr;
  if (!keymap)
    return false;
  const KeyChord keys = chordNow(chord, *keymap);
  return keys.isWhole &&
         type({keys, server_->modifierKeys(*keymap), server_->group(), window}, meanwhile);
}

bool KeystrokePoster::type(const Typing& typing, const std::function<void()>& meanwhile) {
  bool isTyped = false;
  // The server may not see a key go up while its keyboard is grabbed.
  const ServerKeySet disturbing =
      KeyboardGrab::isHeld() ? ~ServerKeySet() : typing.modifiers.keys | codesOf(typing.chord);
  const auto post = [&] {
    ServerKeySet touched;
    own_.postPastHotKeys(codesOf(typing.chord), [&] {
      KeyboardGrab::release(); // a hot key pressed by now keeps back keys that a look does not see
      server_->alone([&] {
        isTyped = typing.window == 0 || server_->hasFocus(typing.window);
        if (isTyped)
          touched = sendAlone(typing, disturbing);
      });
      KeyboardGrab::release(); // and one pressed since keeps back our own
    });
    return touched;
  };
  const auto whenTyped = [&] {
    if (isTyped)
      meanwhile();
  };
  withGrabReleased(typing.modifiers.keys, post, whenTyped);
  return isTyped;
}

// Answers what may be otherwise than the user has it now. Keys that we pressed again for the user
// are released, too: the server ignores the press of a key that is down.
ServerKeySet KeystrokePoster::sendAlone(const Typing& typing, const ServerKeySet& disturbing) {
  const ServerKeySet& modifiers = typing.modifiers.keys;
  const ServerKeySet down = server_->down();
  const HeldModifiers held =
      heldModifiers(typing.chord.keys, down, typing.modifiers, server_->modifiersInForce());
  const ServerKeySet released = down & disturbing & ~held.keys;
  const ServerKeySet byPrograms = server_->downByPrograms();
  const ServerKeySet ofPrograms = byPrograms & released & modifiers & ~pressedAgain_;
  // Up since another keyboard released them; the server would ignore their press.
  const ServerKeySet stale = byPrograms & codesOf(typing.chord) & ~down;
  const ServerKeySet own = std::exchange(pressedAgain_, pressedAgain_ & held.keys) & ~held.keys;
  server_->send(keyEvents(released | own | stale, KeyDirection::up));
  if (typing.chord.group != typing.group)
    server_->lockGroup(typing.chord.group);
  server_->send(held.rest);
  if (typing.chord.group != typing.group)
    server_->lockGroup(typing.group);
  server_->send(keyEvents(ofPrograms, KeyDirection::down));
  return (released & ~ofPrograms) | held.keys;
}

// `post` answers which keys it has touched. What programs type `meanwhile` is the user's.
void KeystrokePoster::withGrabReleased(const ServerKeySet& modifiers,
                                       const std::function<ServerKeySet()>& post,
                                       const std::function<void()>& meanwhile) {
  own_.begin();
  std::optional<PhysicalKeyboards> pressed;
  if (KeyboardGrab::isHeld())
    pressed.emplace(server_->connection());
  KeyboardGrab::release(); // and with it a hot key's: it is on the same connection
  ServerKeySet touched = post();
  own_.end();
  meanwhile();
  own_.begin();
  if (pressed)
    touched |= grabAgain(*pressed);
  restore(touched, modifiers);
  own_.end();
}

void KeystrokePoster::whileGrabIsReleased(const std::function<void()>& work) {
  const XkbKeymap keymap = hasServer() ? server_->keymap() : nullptr;
  if (!keymap)
    return work();
  withGrabReleased(
      server_->modifierKeys(*keymap).keys, [] { return ServerKeySet(); }, work);
}

// What the user types during the chord is for the menu, too.
ServerKeySet KeystrokePoster::grabAgain(PhysicalKeyboards& pressed) {
  KeyboardGrab::take();
  RecordedKeyEvents missed = pressed.take();
  KeyboardGrab::inject(missed);
  pressed.release();
  const RecordedKeyEvents last = pressed.take();
  KeyboardGrab::inject(last);
  missed.insert(missed.end(), last.begin(), last.end());
  ServerKeySet touched;
  for (const xcb_key_press_event_t& event : missed)
    touched.set(event.detail);
  return touched;
}

void KeystrokePoster::retype(const RecordedKeyEvents& events, const ServerKeySet& downAfter) {
  const XkbKeymap keymap = hasServer() ? server_->keymap() : nullptr;
  if (!keymap)
    return;
  const ModifierKeys modifiers = server_->modifierKeys(*keymap);
  const auto keys = keysToRetype(events, downAfter, modifiers, server_->lockKeys(*keymap));
  if (keys.empty())
    return;
  own_.begin();
  const std::uint32_t group = server_->group();
  const Typing typing{{keys, group}, modifiers, group, 0};
  ServerKeySet touched;
  if (!KeyboardGrab::isHeld())
    KeyboardGrab::release(); // as in `type`
  server_->alone([&] { touched = sendAlone(typing, modifiers.keys | codesOf(typing.chord)); });
  restore(touched, modifiers.keys);
  own_.end();
  restoreLater(touched, modifiers.keys);
}

// A hot key among the keys keeps the rest of them back until the event loop has read it; it may
// begin a gesture, too.
void KeystrokePoster::restoreLater(const ServerKeySet& touched, const ServerKeySet& modifiers) {
  QTimer::singleShot(releasePollInterval, &releasePoll_, [this, touched, modifiers] {
    if (KeyboardGrab::isHeld())
      return restoreLater(touched, modifiers);
    if (!hasServer())
      return;
    own_.begin();
    restore(touched, modifiers);
    own_.end();
  });
}

// What was touched becomes as the user has it now: the server does not see all that happens while
// its keyboards are grabbed. What other programs hold stays.
void KeystrokePoster::restore(const ServerKeySet& touched, const ServerKeySet& modifiers) {
  const auto isRestored = [&] { return !restoreOnce(touched, modifiers); };
  server_->alone([&] { // the user's keyboards go on meanwhile
    for (int turn = 0; turn < mostTurns && !isRestored(); ++turn) {
    }
  });
  if (pressedAgain_.any() && !releasePoll_.isActive())
    releasePoll_.start();
}

// Answers whether something was posted.
bool KeystrokePoster::restoreOnce(const ServerKeySet& touched, const ServerKeySet& modifiers) {
  const ServerKeySet physical = server_->physicallyDown();
  const ServerKeySet ofPrograms = server_->downByPrograms() & ~pressedAgain_;
  const ServerKeySet down = server_->down();
  const ServerKeySet missing = touched & modifiers & physical & ~down;
  const ServerKeySet left = touched & (down | pressedAgain_) & ~physical & ~ofPrograms;
  pressedAgain_ = (pressedAgain_ | missing) & (physical | ~touched);
  server_->send(keyEvents(missing, KeyDirection::down));
  server_->send(keyEvents(left, KeyDirection::up));
  return (missing | left).any();
}

// When the user releases a key that we pressed again, it is still down on the XTest keyboard.
void KeystrokePoster::releaseWithUser() {
  if (!hasServer())
    pressedAgain_.reset();
  if (pressedAgain_.none())
    return releasePoll_.stop();
  if ((pressedAgain_ & ~server_->physicallyDown()).none())
    return;
  const ServerKeySet pressed = pressedAgain_;
  own_.begin();
  restore(pressed, pressed);
  own_.end();
}

bool KeystrokePoster::isInFront(std::int32_t process) {
  const auto facts = windows_.facts(windows_.activeWindow());
  return facts && facts->pid == process;
}

void KeystrokePoster::bringToFront(std::int32_t process) {
  if (process <= 0 || isInFront(process))
    return;
  const std::vector<WindowId> stacking = windows_.stacking();
  for (auto window = stacking.rbegin(); window != stacking.rend(); ++window) {
    const auto facts = windows_.facts(*window);
    if (!facts || facts->pid != process || facts->kind != WindowKind::ordinary)
      continue;
    QElapsedTimer waiting;
    waiting.start();
    if (!windows_.activate(*window))
      return;
    while (!windows_.hasKeyboard(*window) && waiting.elapsed() < activationTimeout)
      std::this_thread::sleep_for(1ms);
    return;
  }
}

} // namespace tavrel
