#include "platform/linux/x11/gestures/ModifierTaps.h"

namespace tavrel {

namespace {
constexpr std::size_t noKeyAtAll = 0; ///< the server counts from 8
}

// A key can be told to go down or up twice: two keyboards have it, or a program lifts it.
void ModifierTaps::keyDown(std::size_t key, std::uint32_t time) {
  if (key >= modifiers_.keys.size() || down_.contains(key))
    return;
  if (!modifiers_.capsLockKeys.test(key)) // Caps Lock leaves the taps of others alone
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
  interruptAllBut(noKeyAtAll);
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
