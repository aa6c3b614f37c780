#include "controller/TVApplication.h"
#include "controller/TVController.h"
#include "exec/ScriptRunner.h"
#include "platform/Applications.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "selection/PasteBack.h"
#include "selection/PasteboardCopy.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

namespace {

constexpr double serviceWait = 1.0;

AXUIElementRef frontApplicationElement() {
  const auto front = platform().applications.active();
  return platform().accessibility.applicationElement(front ? front->processIdentifier : 0);
}

bool hasAnswered(const std::string& serviceName) {
  Pasteboard& selection = privatePasteboard();
  const std::int64_t before = selection.changeCount();
  platform().services.performService(serviceName, selection);
  platform().clock.sleep(serviceWait);
  return selection.changeCount() != before;
}

} // namespace

void TVController::performServiceItem(const std::string& serviceName) {
  const AXUIElementRef applicationRef = frontApplicationElement();
  const bool wasConcealed = isConcealed(privatePasteboard());
  if (!hasAnswered(serviceName))
    return;
  if (const auto host = application_.hostAppName())
    activateApplication(*host);
  setPasteboardToSelection(applicationRef);
  if (wasConcealed) // what the service made of it is not marked as concealed
    clearPasteboard(privatePasteboard());
}

} // namespace tavrel
