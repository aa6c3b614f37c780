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
  if (popupPanel_.visible) // called up again while it is open
    return;
  if (settingsNow::onlyWithFinder()) {
    (void)recordFrontApplication();
    if (host_.hostName != "Finder")
      return;
  }
  if (settingsNow::longPressSound())
    platform().sounds.play(gestureSound);
  performContextMenu();
}

void TVController::performContextMenu() {
  if (popupPanel_.visible) // by the service, too
    return;
  popupPanel_.origin = platform().presenter.pointerLocation();
  popupPanel_.visible = true;
  const bool small = settingsNow::smallFontSize();
  platform().presenter.popUp(launcher_.statusMenu, popupPanel_.origin,
                             small ? MenuFont::small : MenuFont::standard);
  popupPanel_.visible = false;
}

void TVController::invokeTavrelPopup(Pasteboard*, const std::string&, std::string*) {
  performContextMenu();
}

std::optional<std::string> TVController::targetUIElementAt(Point point) {
  Accessibility& accessibility = platform().accessibility;
  AXUIElementRef& root = gestures_.systemWideElement;
  if (!root)
    root = accessibility.systemWideElement();
  const AXUIElementRef element = accessibility.elementAt(root, point);
  if (!element)
    return std::nullopt;
  const auto value = accessibility.role(element);
  const std::string* role = value ? value->string() : nullptr;
  const std::vector<std::string>& excluded = gestures_.excludeUIElements;
  if (!role || std::find(excluded.begin(), excluded.end(), *role) != excluded.end())
    return std::nullopt;
  return *role;
}

void TVController::stopBeepSoundFor(float seconds) {
  muteVolume(true);
  gestures_.beepStopped = true;
  (void)platform().clock.schedule(seconds, [this, alive = std::weak_ptr(alive_)] {
    if (!alive.expired())
      startBeepSound();
  });
}

void TVController::startBeepSound() {
  gestures_.beepStopped = false;
  muteVolume(false);
}

} // namespace tavrel
