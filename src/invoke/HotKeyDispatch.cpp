#include "base/LetterCase.h"
#include "base/Modifiers.h"
#include "controller/ProcessState.h"
#include "controller/SettingsNow.h"
#include "controller/TVController.h"
#include "invoke/KeyNames.h"
#include "platform/Accessibility.h"
#include "platform/Applications.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "selection/PasteboardCopy.h"
#include "selection/PrivatePasteboard.h"

#include <array>

namespace tavrel {

namespace {
struct ModifierKey {
  std::uint32_t mask;
  std::uint16_t code;
};

constexpr auto modifierKeys = std::to_array<ModifierKey>({
    {eventModifier::command, keyCode::command},
    {eventModifier::shift, keyCode::shift},
    {eventModifier::option, keyCode::option},
    {eventModifier::control, keyCode::control},
});

void postKey(const AXUIElementRef& application, const KeyboardEvent& event) {
  platform().accessibility.postKeyboardEvent(application, event);
}

// Keys are released in the same order as they are pressed, not in the reverse one.
void postModifiers(const AXUIElementRef& application, KeyDirection direction) {
  for (const auto& [mask, code] : modifierKeys)
    if (gAppModifiers & mask)
      postKey(application, {0, code, direction});
}

AXUIElementRef frontElement() {
  const auto front = platform().applications.active();
  return platform().accessibility.applicationElement(front ? front->processIdentifier : 0);
}
} // namespace

bool TVController::performHotkey(EventHotKeyRef reference) {
  std::optional<HotKeyRecord> fired;
  for (std::size_t i = 0; i < gHotkeyArray.size() && !fired; ++i) {
    if (gHotkeyArray[i].HotKeyRef != reference || reference == 0) // 0: the key was refused
      continue;
    if (gHotkeyArray[i].HotKeyItem)
      fired = gHotkeyArray[i]; // a copy: the menu may be rebuilt while the item runs
    else
      doubleTapNotification();
  }
  if (!fired)
    return false;
  captureForHotKey();
  const bool hasRun = performHotkeyItem(*fired);
  if (!gExecutingScript)
    forgetConcealedSelection();
  return hasRun;
}

bool TVController::performHotkeyItem(const HotKeyRecord& record) {
  if (settingsNow::onlyWithFinder() && host_.hostName != "Finder")
    return handOnKeystroke();
  if (record.HotKeyItem && !isHideItem(*record.HotKeyItem)) {
    executeItem(*record.HotKeyItem, true, nullptr);
    return true;
  }
  gAppCharCode = record.HotKeyChar;
  gAppModifiers = record.HotKeyMod;
  return handOnKeystroke();
}

void TVController::captureForHotKey() {
  const std::optional<std::int32_t> process = recordFrontApplication();
  if (process)
    setSelectionToPasteboard(platform().accessibility.applicationElement(*process));
  else
    clearPasteboard(privatePasteboard());
  sOptionKeyPressed = false;
}

// At the next turn of the event loop: the release of the hot key, which is being handled now, must
// be over before keys are posted.
bool TVController::handOnKeystroke() {
  const char16_t small = lowerCase(gAppCharCode);
  if (small != gAppCharCode)
    gAppModifiers |= eventModifier::shift;
  gAppCharCode = small;
  const char name[] = {static_cast<char>(small & 0xFF), '\0'};
  const int code = keyCodeForKeyString(name);
  if (code < 0)
    return false;
  gAppKeyCode = static_cast<std::uint16_t>(code);
  (void)platform().clock.schedule(0, [this, alive = std::weak_ptr(alive_)] {
    if (!alive.expired())
      performAppHotkey();
  });
  return false;
}

void TVController::performAppHotkey() {
  const AXUIElementRef application = frontElement();
  unregisterAllHotkeys(); // or the keystroke would be caught again
  postModifiers(application, KeyDirection::down);
  postKey(application, {gAppCharCode, gAppKeyCode, KeyDirection::down, KeyPurpose::handedOn});
  postKey(application, {gAppCharCode, gAppKeyCode, KeyDirection::up, KeyPurpose::handedOn});
  postModifiers(application, KeyDirection::up);
  registerHotkeys();
}

} // namespace tavrel
