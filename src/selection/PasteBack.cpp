#include "selection/PasteBack.h"

#include "platform/Clock.h"
#include "platform/Platform.h"
#include "selection/CommandKeystroke.h"
#include "selection/PasteboardCopy.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

namespace {
constexpr double pasteWait = 0.2;
}

void setPasteboardToSelection(const AXUIElementRef& application) {
  backUpGeneralPasteboard();
  copyPasteboard(privatePasteboard(), platform().pasteboards.general());
  postCommandKeystroke(application, pasteKey);
  platform().clock.sleep(pasteWait);
  restoreGeneralPasteboard();
}

} // namespace tavrel
