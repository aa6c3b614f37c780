#include "app/PreferenceStore.h"
#include "app/SettingKeys.h"
#include "app/SystemVersion.h"
#include "app/TVController.h"
#include "invoke/KeycodeTable.h"
#include "platform/Platform.h"
#include "platform/Presenter.h"
#include "platform/Workspace.h"

namespace tavrel {

TVController::TVController(TVApplication& application) : application_(application) {
  platform().presenter.setActionTarget(this);
}

// The item goes first: its menu, a member, must outlive it.
TVController::~TVController() {
  statusItem.reset();
  platform().presenter.setActionTarget(nullptr);
  releaseSharedIcons();
}

void TVController::applicationWillFinishLaunching() {
  gOsVersion = platform().workspace.systemVersion();
  excludeUIElements = {"AXValueIndicator", "AXDockItem", "AXButton",
                       "AXToolbar",        "AXMenuItem", "AXMenuBarItem"};
  InitAscii2KeyCodeTable(gKeycodeTable);
  popupPanel = {.origin = popupPanel.origin, .alpha = 0.0, .opaque = false, .visible = false};
  loadMenuImages(images);
  showIcon = TVR_BoolForKey(TVR_DisplayIcons, true);
  settings = readSettings();
  installDefaultPopupShortcut(settings);
  menuRootArray = copyMenuRootArray();
  createStatusMenu();
  if (settings.enableStatusMenuBar)
    activateStatusMenu();
  statusMenu.delegate = this;
}

} // namespace tavrel
