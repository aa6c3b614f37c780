#include "app/DoubleTapName.h"
#include "controller/PreferenceStore.h"
#include "controller/ProcessState.h"
#include "controller/TVController.h"
#include "invoke/LongPress.h"
#include "invoke/NTModifierKeyActionHandler.h"
#include "menu/MenuIcons.h"
#include "platform/Platform.h"
#include "platform/Preferences.h"

namespace tavrel {

// Unlike a launch this installs no shortcut for the pop-up: after a reload without one there is
// none.
void TVController::receiveNotificationFromPrefrences(const Notification&) {
  platform().preferences.synchronize(preferenceDomain);
  settings = readSettings();
  showIcon = settings.displayIcons;
  menuRootArray = copyMenuRootArray();
  createStatusMenu();
  if (settings.enableStatusMenuBar)
    activateStatusMenu();
  else
    deactivateStatusMenu();
  registerHotkeys();
  doubleTapActionHandler->removeClient(doubleTapName);
  armDoubleTap();
  armLongPress();
}

} // namespace tavrel
