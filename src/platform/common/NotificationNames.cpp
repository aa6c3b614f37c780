#include "platform/common/NotificationNames.h"

namespace tavrel {

std::vector<std::string> knownNotificationNames(const std::string& sender) {
  if (sender == "qorvane.tavrel.pref")
    return {sender};
  if (sender == "qorvane.tavrel.cm")
    return {"execScript",         "quitProcess",    "execServices",
            "openWithPathFinder", "revealInFinder", "showMessage"};
  return {};
}

} // namespace tavrel
