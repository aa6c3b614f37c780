#include "platform/linux/x11/gestures/ModifierTaps.h"

#include <utility>

namespace tavrel {

// A key can go down or up twice in a row: two keyboards have it, or a program releases it (XTest).
void ModifierTaps::keyDown(std::size_t key, std::uint32_t time) {
  if (key >= down_.size() || down_.test(key))
    return;
  down_.set(key);
  if (!modifiers_.capsLockKeys.test(key))
    goOn(SequelKind::interrupted, time);
  if (modifiers_.keys.test(key))
    change(key, time);
}

void ModifierTaps::keyUp(std::size_t key, std::uint32_t time) {
  if (key >= down_.size() || !down_.test(key))
    return;
  down_.reset(key);
  if (!modifiers_.keys.test(key))
    return;
  const bool isAnotherDown = (down_ & modifiers_.keys & ~modifiers_.capsLockKeys).any();
  if (!modifiers_.capsLockKeys.test(key))
    goOn(isAnotherDown ? SequelKind::interrupted : SequelKind::released, time);
  change(0, time);
}

void ModifierTaps::buttonDown(std::uint32_t button, std::uint32_t time) {
  buttons_.insert(button);
  goOn(SequelKind::interrupted, time);
}

void ModifierTaps::buttonUp(std::uint32_t button) {
  buttons_.erase(button);
}

void ModifierTaps::synchronize(const ServerKeySet& down, std::set<std::uint32_t> buttons) {
  down_ = down;
  buttons_ = std::move(buttons);
}

void ModifierTaps::change(std::size_t pressed, std::uint32_t time) {
  const auto sequel = std::make_shared<ModifierSequel>();
  if (!buttons_.empty())
    sequel->kind = SequelKind::interrupted;
  else
    open_.push_back(sequel);
  changes.push_back({pressed, time, down_, sequel});
}

void ModifierTaps::goOn(SequelKind kind, std::uint32_t time) {
  for (const auto& sequel : std::exchange(open_, {}))
    *sequel = {kind, time, down_};
}

} // namespace tavrel
