#include "controller/SettingsNow.h"
#include "controller/TVController.h"
#include "invoke/AlertVolume.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Presenter.h"
#include "platform/Sounds.h"

#include <algorithm>

namespace tavrel {

namespace {
constexpr const char* gestureSound = "Pop.aiff";
}

void TVController::doubleTapNotification() {
  if (popupPanel.visible) // called up again while it is open
    return;
  if (settingsNow::onlyWithFinder()) {
    (void)recordFrontApplication();
    if (hostName != "Finder")
      return;
  }
  if (settingsNow::longPressSound())
    platform().sounds.play(gestureSound);
  performContextMenu();
}

void TVController::performContextMenu() {
  if (popupPanel.visible) // by the service, too
    return;
  popupPanel.origin = platform().presenter.pointerLocation();
  popupPanel.visible = true;
  const bool small = settingsNow::smallFontSize();
  platform().presenter.popUp(statusMenu, popupPanel.origin,
                             small ? MenuFont::small : MenuFont::standard);
  popupPanel.visible = false;
}

void TVController::invokeTavrelPopup(Pasteboard*, const std::string&, std::string*) {
  performContextMenu();
}

std::optional<std::string> TVController::targetUIElementAt(Point point) {
  Accessibility& accessibility = platform().accessibility;
  if (!systemWideElement)
    systemWideElement = accessibility.systemWideElement();
  const AXUIElementRef element = accessibility.elementAt(systemWideElement, point);
  if (!element)
    return std::nullopt;
  const auto value = accessibility.role(element);
  const std::string* role = value ? value->string() : nullptr;
  if (!role || std::find(excludeUIElements.begin(), excludeUIElements.end(), *role) !=
                   excludeUIElements.end())
    return std::nullopt;
  return *role;
}

void TVController::stopBeepSoundFor(float seconds) {
  muteVolume(true);
  beepStopped_ = true;
  (void)platform().clock.schedule(seconds, [this, alive = std::weak_ptr(alive_)] {
    if (!alive.expired())
      startBeepSound();
  });
}

void TVController::startBeepSound() {
  beepStopped_ = false;
  muteVolume(false);
}

} // namespace tavrel
