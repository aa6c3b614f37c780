#include "base/PathString.h"
#include "controller/TVController.h"
#include "exec/FileActions.h"
#include "exec/ScriptRunner.h"
#include "platform/Applications.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Services.h"
#include "selection/PasteBack.h"
#include "selection/PasteboardCopy.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

namespace {

constexpr int mostReads = 9;
constexpr double pollInterval = 0.2;
constexpr std::int32_t windowedFlavor = 2;

std::string fileNameOf(const std::optional<RunningApplication>& application) {
  const bool known = application && application->path;
  return known ? deletingPathExtension(lastPathComponent(*application->path)) : std::string();
}

// Polls, so that a quick service is not waited for longer than it takes; performServiceItem
// (exec/ServiceItem.cpp) always waits a whole second.
void awaitAnswer(std::int64_t before) {
  for (int reads = 1; privatePasteboard().changeCount() == before && reads < mostReads; ++reads)
    platform().clock.sleep(pollInterval);
}

bool answers(const std::string& serviceName) {
  Pasteboard& selection = privatePasteboard();
  const std::int64_t before = selection.changeCount();
  platform().services.performService(serviceName, selection);
  awaitAnswer(before);
  return selection.changeCount() != before;
}

} // namespace

// The application is the one in front now, whatever host an earlier message named.
void TVController::execServices(const std::string& serviceName) {
  const auto front = platform().applications.active();
  const std::string name = fileNameOf(front);
  const AXUIElementRef applicationRef =
      platform().accessibility.applicationElement(front ? front->processIdentifier : 0);
  const bool windowed = front && GetApplicationFlavor(front->serialNumber) == windowedFlavor;
  if (name != "Finder" && windowed)
    setSelectionToPasteboard(applicationRef);
  else if (name == "Finder" || name == "Path Finder")
    setSelectionToPasteboardWithScript(name);
  const bool isPassword = isConcealed(privatePasteboard());
  if (answers(serviceName)) {
    activateApplication(name);
    setPasteboardToSelection(applicationRef);
  }
  if (isPassword) // or what the service made of it, which is not marked as concealed
    clearPasteboard(privatePasteboard());
}

} // namespace tavrel
