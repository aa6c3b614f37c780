#include "invoke/ModifierMasks.h"

#include "base/LetterCase.h"
#include "base/Modifiers.h"

#include <array>

namespace tavrel {

namespace {
struct MaskPair {
  std::uint32_t eventForm;
  std::uint32_t interfaceForm;
};

constexpr auto maskPairs = std::to_array<MaskPair>({
    {eventModifier::command, modifier::command},
    {eventModifier::shift, modifier::shift},
    {eventModifier::option, modifier::option},
    {eventModifier::control, modifier::control},
    {eventModifier::function, modifier::function},
});
} // namespace

std::uint32_t carbonModifierFlagsToCocoaModifierFlags(std::uint32_t modifiers) {
  std::uint32_t result = 0;
  for (const auto& [eventForm, interfaceForm] : maskPairs)
    if (modifiers & eventForm)
      result |= interfaceForm;
  return result;
}

std::uint32_t hotKeyModifiers(char16_t character, std::uint32_t modifiers) {
  std::uint32_t result = eventModifier::command;
  if (character != lowerCase(character) || (modifiers & modifier::shift))
    result |= eventModifier::shift;
  if (modifiers & modifier::option)
    result |= eventModifier::option;
  if (modifiers & modifier::control)
    result |= eventModifier::control;
  return result;
}

} // namespace tavrel
