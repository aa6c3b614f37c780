#include "bridge/BridgeMessage.h"
#include "controller/PreferenceStore.h"
#include "controller/ProcessState.h"
#include "controller/TVApplication.h"
#include "controller/TVController.h"
#include "invoke/KeycodeTable.h"
#include "invoke/LongPress.h"
#include "invoke/NTModifierKeyActionHandler.h"
#include "menu/MenuIcons.h"
#include "platform/HotKeys.h"
#include "platform/Platform.h"
#include "platform/Presenter.h"
#include "platform/Workspace.h"

namespace tavrel {

TVController::TVController(TVApplication& application) : application_(application) {
  platform().presenter.setActionTarget(this);
  platform().hotKeys.setEventTarget(&application);
  platform().scripting.setApplication(&application);
  application.setHotKeyHandler(
      [this](EventHotKeyRef reference) { return performHotkey(reference); });
}

// The status item is destroyed first: its menu, a member, must outlive it.
TVController::~TVController() {
  launcher_.statusItem.reset();
  platform().presenter.setActionTarget(nullptr);
  platform().services.setServicesProvider(nullptr);
  platform().hotKeys.setEventTarget(nullptr);
  application_.setHotKeyHandler(nullptr);
  releaseSharedIcons();
  unregisterAllHotkeys();
  platform().scripting.setApplication(nullptr);
  for (const ObserverId observer : distributedObservers_)
    platform().distributedNotifications.removeObserver(observer);
  if (gestures_.doubleTapObserver)
    platform().notifications.removeObserver(*gestures_.doubleTapObserver);
  if (gestures_.beepStopped)
    startBeepSound();
}

void TVController::applicationWillFinishLaunching() {
  gOsVersion = platform().workspace.systemVersion();
  gHotkeyArray.clear();
  gestures_.excludeUIElements = {"AXValueIndicator", "AXDockItem", "AXButton",
                                 "AXToolbar",        "AXMenuItem", "AXMenuBarItem"};
  InitAscii2KeyCodeTable(gKeycodeTable);
  popupPanel_ = {.origin = popupPanel_.origin, .alpha = 0.0, .opaque = false, .visible = false};
  loadMenuImages(images_);
  settings_ = readSettings();
  showIcon = settings_.displayIcons;
  installDefaultPopupShortcut(settings_);
  launcher_.menuRootArray = copyMenuRootArray();
  createStatusMenu();
  if (settings_.enableStatusMenuBar)
    activateStatusMenu();
  registerHotkeys();
  observeOtherPrograms();
  launcher_.statusMenu.delegate = this;
  gestures_.doubleTapActionHandler = std::make_unique<NTModifierKeyActionHandler>();
  gestures_.doubleTapObserver = platform().notifications.addObserver(
      {doubleTapName, NTModifierKeyActionHandler::sender},
      [this](const Notification&) { doubleTapNotification(); });
  armDoubleTap();
  armLongPress();
}

void TVController::applicationDidFinishLaunching() {
  platform().services.setServicesProvider(this);
}

// Notifications are told apart by their sender: the preference program may use any name, and those
// of the plug-in are requests (bridge/BridgeMessage.h).
void TVController::observeOtherPrograms() {
  NotificationCenter& center = platform().distributedNotifications;
  distributedObservers_.push_back(center.addObserver(
      {std::nullopt, preferenceDomain}, [this](const Notification& notification) {
        receiveNotificationFromPrefrences(notification);
      }));
  distributedObservers_.push_back(center.addObserver(
      {std::nullopt, contextMenuSender}, [this](const Notification& notification) {
        receiveNotificationFromContextMenu(notification);
      }));
}

// Registers the double tap of the key that the settings name now.
void TVController::armDoubleTap() {
  const bool byDoubleTap =
      settings_.popupSartType == static_cast<std::int32_t>(PopupStart::doubleTap);
  if (!settings_.enablePopupMenu || !byDoubleTap)
    return;
  const std::uint32_t mask =
      NTModifierKeyActionHandler::keyMaskForKeyCode(settings_.doubleTapKeyCode);
  gestures_.doubleTapActionHandler->addClient(doubleTapName, static_cast<std::int32_t>(mask));
}

void TVController::armLongPress() {
  gestures_.longPress.reset();
  if (settings_.longPressInterval <= 0)
    return;
  gestures_.longPress = std::make_unique<LongPress>(LongPressActions{
      [this] { return settings_.longPressInterval; },
      [this](Point where) { return targetUIElementAt(where).has_value(); },
      [this](float seconds) { stopBeepSoundFor(seconds); }, [this] { doubleTapNotification(); }});
  (void)gestures_.longPress->watch();
}

} // namespace tavrel
