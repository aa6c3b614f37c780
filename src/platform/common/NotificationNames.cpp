#include "platform/common/NotificationNames.h"

#include "platform/NotificationCenter.h"
#include "platform/Preferences.h"

namespace tavrel {

std::vector<std::string> knownNotificationNames(const std::string& sender) {
  if (sender == preferenceDomain)
    return {sender};
  if (sender == contextMenuSender)
    return {"execScript",         "quitProcess",    "execServices",
            "openWithPathFinder", "revealInFinder", "showMessage"};
  return {};
}

} // namespace tavrel
