#include "controller/PreferenceStore.h"
#include "controller/ProcessState.h"
#include "controller/TVController.h"
#include "invoke/LongPress.h"
#include "invoke/NTModifierKeyActionHandler.h"
#include "platform/Platform.h"
#include "platform/Preferences.h"

namespace tavrel {

// Only a launch installs the default shortcut of the pop-up. When a reload finds none, the user has
// taken it out.
void TVController::receiveNotificationFromPrefrences(const Notification&) {
  platform().preferences.synchronize(preferenceDomain);
  settings_ = readSettings();
  showIcon = settings_.displayIcons;
  launcher_.menuRootArray = copyMenuRootArray();
  createStatusMenu();
  if (settings_.enableStatusMenuBar)
    activateStatusMenu();
  else
    deactivateStatusMenu();
  registerHotkeys();
  gestures_.doubleTapActionHandler->removeClient(doubleTapName);
  armDoubleTap();
  armLongPress();
}

} // namespace tavrel
