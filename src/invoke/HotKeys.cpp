#include "base/LetterCase.h"
#include "base/Numbers.h"
#include "base/Utf8.h"
#include "controller/ProcessState.h"
#include "controller/TVController.h"
#include "invoke/KeycodeTable.h"
#include "invoke/ModifierMasks.h"
#include "menu/ItemRecord.h"
#include "platform/Platform.h"
#include "platform/SystemLog.h"

#include <algorithm>

namespace tavrel {

namespace {
constexpr std::uint32_t hotKeySignature = 0x5456524D; // 'TVRM'

// The text must not be empty.
char16_t firstCharacter(const std::string& text) {
  return utf16FromUtf8(text).front();
}

std::optional<std::uint32_t> numberFor(const PropertyList& item, const char* key) {
  const PropertyList* value = item.find(key);
  return value ? uint32Value(*value) : std::nullopt;
}

std::uint32_t shortcutKeyCode(const PropertyList& item, char16_t character) {
  if (const auto stored = numberFor(item, TVR_MenuItemShortcutKeyCode))
    return *stored;
  return static_cast<std::uint32_t>(AsciiToKeyCode(gKeycodeTable, upperCase(character)));
}

std::string shortcutAsWritten(const std::optional<PropertyList>& item, std::uint16_t character) {
  const std::string* text = item ? item->stringFor(TVR_MenuItemShortcutString) : nullptr;
  return text ? *text : utf8FromUtf16(std::u16string(1, static_cast<char16_t>(character)));
}

void registerShortcut(const PropertyList& item, TVController& controller) {
  const std::string* shortcut = item.stringFor(TVR_MenuItemShortcutString);
  if (!shortcut || shortcut->empty())
    return;
  const char16_t character = firstCharacter(*shortcut);
  controller.addHotKey(character, numberFor(item, TVR_MenuItemShortcutModifier).value_or(0),
                       shortcutKeyCode(item, character), item);
}

void unregister(const HotKeyRecord& record) {
  if (platform().hotKeys.unregisterHotKey(record.HotKeyRef) != hotKeyStatus::registered)
    platform().log.write("Failed to unregister hot key....");
}
} // namespace

void TVController::registerHotkeys() {
  unregisterAllHotkeys();
  if (launcher_.menuRootArray && launcher_.menuRootArray->array())
    registerHotkeysForMenuArray(*launcher_.menuRootArray->array());
  const bool byHotKey = settings_.popupSartType == static_cast<std::int32_t>(PopupStart::hotKey);
  const std::string shortcut = settings_.popupShortcutString.value_or("");
  if (settings_.enablePopupMenu && byHotKey && !shortcut.empty())
    addHotKey(firstCharacter(shortcut), static_cast<std::uint32_t>(settings_.popupShortcutModifier),
              static_cast<std::uint32_t>(settings_.popupShortcutKeyCode), std::nullopt);
}

// Depth first, in the tree's order; without recursion, which would overflow the stack on a deep
// tree.
void TVController::registerHotkeysForMenuArray(const PropertyList::Array& array) {
  std::vector<const PropertyList*> waiting; // the next one last
  const auto wait = [&](const PropertyList::Array& items) {
    for (std::size_t i = items.size(); i > 0; --i)
      waiting.push_back(&items[i - 1]);
  };
  wait(array);
  while (!waiting.empty()) {
    const PropertyList& item = *waiting.back();
    waiting.pop_back();
    const PropertyList::Array* children = item.arrayFor(TVR_MenuItemTree);
    if (children && !children->empty())
      wait(*children);
    else
      registerShortcut(item, *this);
  }
}

void TVController::addHotKey(std::uint16_t character, std::uint32_t modifiers,
                             std::uint32_t keyCode, const std::optional<PropertyList>& targetItem) {
  addHotKey2(character, hotKeyModifiers(character, modifiers), keyCode, targetItem);
}

// A key that the desktop refuses keeps its record, which fires if the desktop gets the key later.
void TVController::addHotKey2(std::uint16_t character, std::uint32_t carbonModifiers,
                              std::uint32_t keyCode,
                              const std::optional<PropertyList>& targetItem) {
  const std::string* title = targetItem ? targetItem->stringFor(TVR_MenuItemTitle) : nullptr;
  const EventHotKeyID id{hotKeySignature, static_cast<std::uint32_t>(gHotkeyArray.size()),
                         shortcutAsWritten(targetItem, character), title ? *title : std::string()};
  const auto registration = platform().hotKeys.registerHotKey(keyCode, carbonModifiers, id);
  gHotkeyArray.push_back({registration.reference, targetItem, carbonModifiers, character});
}

// Refused keys may all have the reference 0: the rest of the record tells them apart.
void TVController::unregisterHotKey(const HotKeyRecord& record) {
  const auto found = std::find_if(gHotkeyArray.begin(), gHotkeyArray.end(), [&](const auto& each) {
    return each.HotKeyRef == record.HotKeyRef && each.HotKeyMod == record.HotKeyMod &&
           each.HotKeyChar == record.HotKeyChar;
  });
  unregister(record);
  if (found != gHotkeyArray.end())
    gHotkeyArray.erase(found);
}

void TVController::unregisterAllHotkeys() {
  std::for_each(gHotkeyArray.begin(), gHotkeyArray.end(), unregister);
  gHotkeyArray.clear();
}

} // namespace tavrel
