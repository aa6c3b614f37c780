#include "invoke/EventPredicates.h"

#include "base/Modifiers.h"

namespace tavrel {

namespace {
// The characters that the platform gives keys which type none.
namespace keyCharacter {
constexpr char16_t tab = 9;
constexpr char16_t carriageReturn = 13;
constexpr char16_t backTab = 25;
constexpr char16_t escape = 27;
constexpr char16_t deletion = 127;
constexpr char16_t upArrow = 63232;
constexpr char16_t downArrow = 63233;
constexpr char16_t leftArrow = 63234;
constexpr char16_t rightArrow = 63235;
constexpr char16_t home = 63273;
constexpr char16_t end = 63275;
constexpr char16_t pageUp = 63276;
constexpr char16_t pageDown = 63277;
} // namespace keyCharacter

bool hasModifier(const Event& event, std::uint32_t mask) {
  return (event.modifierFlags & mask) != 0;
}
} // namespace

bool characterIsDown(const Event& event, char16_t character) {
  return !event.characters.empty() && event.characters.front() == character;
}

bool isShiftTabKeyEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::backTab);
}
bool isTabKeyEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::tab);
}
bool isEscKeyEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::escape);
}
bool isReturnKeyEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::carriageReturn);
}
bool isDeleteKeyEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::deletion);
}
bool isUpArrowEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::upArrow);
}
bool isDownArrowEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::downArrow);
}
bool isLeftArrowEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::leftArrow);
}
bool isRightArrowEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::rightArrow);
}
bool isHomeKeyEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::home);
}
bool isEndKeyEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::end);
}
bool isPageUpKeyEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::pageUp);
}
bool isPageDownKeyEvent(const Event& event) {
  return characterIsDown(event, keyCharacter::pageDown);
}
bool isArrowEvent(const Event& event) {
  return isUpArrowEvent(event) || isDownArrowEvent(event) || isLeftArrowEvent(event) ||
         isRightArrowEvent(event);
}

bool isDoubleClick(const Event& event) {
  return event.clickCount != 0 && event.clickCount % 2 == 0;
}
bool isSingleClick(const Event& event) {
  return event.clickCount % 2 != 0;
}

bool shiftKeyDown(const Event& event) {
  return hasModifier(event, modifier::shift);
}
bool controlKeyDown(const Event& event) {
  return hasModifier(event, modifier::control);
}
bool optionKeyDown(const Event& event) {
  return hasModifier(event, modifier::option);
}
bool commandKeyDown(const Event& event) {
  return hasModifier(event, modifier::command);
}
bool modifierIsDown(const Event& event) {
  return hasModifier(event,
                     modifier::shift | modifier::control | modifier::option | modifier::command);
}
bool optionXOrCommandKeyDown(const Event& event) {
  return optionKeyDown(event) != commandKeyDown(event);
}
bool openInNewWindowEvent(const Event& event) {
  return commandKeyDown(event) && event.type != EventType::keyDown;
}

} // namespace tavrel
