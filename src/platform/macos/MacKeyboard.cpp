#include "platform/macos/MacKeyboard.h"

#include "base/MacRoman.h"
#include "base/Modifiers.h"
#include "platform/common/KeyboardLayout.h"
#include "platform/macos/Conversions.h"

#include <Carbon/Carbon.h>

#include <algorithm>
#include <cstring>

namespace tavrel {

namespace {

constexpr std::size_t longestName = 255;

using InputSource = CFOwned<TISInputSourceRef>;

constexpr std::uint32_t knownModifiers = eventModifier::command | eventModifier::shift |
                                         eventModifier::capsLock | eventModifier::option |
                                         eventModifier::control | eventModifier::function;

CFDataRef layoutData(const InputSource& source) {
  return source ? static_cast<CFDataRef>(
                      TISGetInputSourceProperty(source.get(), kTISPropertyUnicodeKeyLayoutData))
                : nullptr;
}

// An input method has no tables of its own: the layout for Latin letters is used instead.
InputSource currentLayout() {
  InputSource source(TISCopyCurrentKeyboardLayoutInputSource());
  if (layoutData(source))
    return source;
  return InputSource(TISCopyCurrentASCIICapableKeyboardLayoutInputSource());
}

using Codes = std::array<std::uint8_t, 2>;
using Units = std::array<UniChar, 2>; ///< 0 where nothing is typed

std::uint8_t latin1Code(UniChar unit) {
  return unit < 256 ? static_cast<std::uint8_t>(unit) : std::uint8_t{0};
}

Units unitsOf(const UCKeyboardLayout& layout, std::uint16_t keyCode, std::uint32_t modifiers) {
  UInt32 dead = 0;
  UniCharCount count = 0;
  std::array<UniChar, 4> units{};
  const ::OSStatus status =
      UCKeyTranslate(&layout, keyCode, kUCKeyActionDown, modifiers, LMGetKbdType(),
                     kUCKeyTranslateNoDeadKeysMask, &dead, units.size(), &count, units.data());
  Units typed{};
  for (std::size_t i = 0; status == noErr && i < std::min<std::size_t>(count, typed.size()); ++i)
    typed[i] = units[i];
  return typed;
}

Codes codesOf(const Units& units) {
  return {macRomanCode(units[0]), macRomanCode(units[1])};
}

const UCKeyboardLayout* tablesIn(CFDataRef data) {
  return data ? reinterpret_cast<const UCKeyboardLayout*>(CFDataGetBytePtr(data)) : nullptr;
}

CharacterTable tableOf(const UCKeyboardLayout& layout, std::uint32_t modifiers) {
  CharacterTable table{};
  for (std::uint16_t key = 0; key < table.size(); ++key)
    table[key] = latin1Code(unitsOf(layout, key, modifiers)[0]);
  return table;
}

} // namespace

KeyMap MacKeyboard::keyMap() {
  ::KeyMap keys{};
  GetKeys(keys);
  KeyMap map;
  static_assert(sizeof keys == sizeof map.bytes);
  std::memcpy(map.bytes.data(), &keys, sizeof keys);
  return map;
}

std::uint32_t MacKeyboard::eventModifiers() {
  return GetCurrentKeyModifiers() & knownModifiers;
}

std::string MacKeyboard::layoutIdentifier() {
  const InputSource source(TISCopyCurrentKeyboardLayoutInputSource());
  if (!source)
    return {};
  return stringOf(
      static_cast<CFStringRef>(TISGetInputSourceProperty(source.get(), kTISPropertyInputSourceID)));
}

std::int16_t MacKeyboard::layoutId() {
  return layoutNumber(layoutIdentifier());
}

std::optional<CharacterTables> MacKeyboard::characterTables() {
  const InputSource source = currentLayout();
  const UCKeyboardLayout* layout = tablesIn(layoutData(source));
  if (!layout)
    return std::nullopt;
  CharacterTables result{layoutId(), layoutIdentifier().substr(0, longestName), {}};
  for (const std::uint32_t modifiers : tableModifiers)
    result.tables.push_back(tableOf(*layout, modifiers));
  return result;
}

std::uint32_t MacKeyboard::translate(std::uint16_t keyCode) {
  const InputSource source = currentLayout();
  const UCKeyboardLayout* layout = tablesIn(layoutData(source));
  if (!layout)
    return 0;
  const Codes codes = codesOf(unitsOf(*layout, keyCode, 0));
  return translatedKey(codes[0], codes[1]);
}

} // namespace tavrel
