#include "app/PreferenceStore.h"
#include "app/SettingKeys.h"
#include "app/TVController.h"
#include "platform/Platform.h"
#include "platform/Presenter.h"

namespace tavrel {

void TVController::performContextMenu() {
  popupPanel.origin = platform().presenter.pointerLocation();
  popupPanel.visible = true;
  const bool small = TVR_BoolForKey(TVR_SmallFontSize, false);
  platform().presenter.popUp(statusMenu, popupPanel.origin,
                             small ? MenuFont::small : MenuFont::standard);
  popupPanel.visible = false;
}

void TVController::invokeTavrelPopup(Pasteboard*, const std::string&, std::string*) {
  performContextMenu();
}

} // namespace tavrel
