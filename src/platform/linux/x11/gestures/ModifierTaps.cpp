#include "platform/linux/x11/gestures/ModifierTaps.h"

namespace tavrel {

namespace {
constexpr std::size_t noKeyCode = 0; ///< key codes of the server begin at 8
}

// A key can go down or up twice in a row: two keyboards have it, or a program releases it (XTest).
void ModifierTaps::keyDown(std::size_t key, std::uint32_t time) {
  if (key >= modifiers_.keys.size() || down_.contains(key))
    return;
  if (!modifiers_.capsLockKeys.test(key)) // Caps Lock does not interrupt
    interruptAllBut(key);
  if (!modifiers_.keys.test(key))
    return;
  const auto press = std::make_shared<ModifierPress>(ModifierPress{key, time, !buttons_.empty()});
  down_[key] = press;
  changes.push_back({press});
}

void ModifierTaps::keyUp(std::size_t key) {
  if (down_.erase(key) > 0)
    changes.push_back({});
}

void ModifierTaps::buttonDown(std::uint32_t button) {
  buttons_.insert(button);
  interruptAllBut(noKeyCode);
}

void ModifierTaps::buttonUp(std::uint32_t button) {
  buttons_.erase(button);
}

void ModifierTaps::interruptAllBut(std::size_t key) {
  for (auto& [held, press] : down_)
    if (held != key)
      press->interrupted = true;
}

} // namespace tavrel
