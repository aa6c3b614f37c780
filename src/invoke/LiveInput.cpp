#include "invoke/LiveInput.h"

#include "base/Modifiers.h"
#include "platform/EventQueue.h"
#include "platform/Keyboard.h"
#include "platform/Platform.h"

namespace tavrel {

namespace {
constexpr std::uint32_t primaryButton = 1;
constexpr std::uint16_t spaceKeyCode = 49;

bool isInForce(std::uint32_t eventModifiers) {
  return (platform().keyboard.eventModifiers() & eventModifiers) != 0;
}
} // namespace

bool isMouseButtonDown() {
  return (platform().eventQueue.currentButtonState() & primaryButton) != 0;
}
bool capsLockDownNow() {
  return isInForce(eventModifier::capsLock);
}
bool shiftKeyDownNow() {
  return isInForce(eventModifier::shift);
}
bool commandKeyDownNow() {
  return isInForce(eventModifier::command);
}
bool optionKeyDownNow() {
  return isInForce(eventModifier::option);
}
bool controlKeyDownNow() {
  return isInForce(eventModifier::control);
}
bool spaceKeyDownNow() {
  return platform().keyboard.keyMap().isDown(spaceKeyCode);
}

} // namespace tavrel
