#include "controller/TVController.h"
#include "exec/ScriptRunner.h"
#include "platform/Platform.h"
#include "platform/Sounds.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

void TVController::openTavrelPref(MenuItem& menuItem) {
  if (host_.filesSelected && menuItem.isAlternate) {
    insertFileItemsToPlist(capturedFiles().value_or(std::vector<std::string>()));
    platform().sounds.play("copy");
  }
  launchTavrelPref();
}

} // namespace tavrel
