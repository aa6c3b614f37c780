#include "base/Description.h"
#include "base/Format.h"
#include "controller/TVController.h"
#include "invoke/AlertVolume.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/SystemLog.h"
#include "selection/CommandKeystroke.h"
#include "selection/PasteboardCopy.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

namespace {

constexpr int mostCopies = 10;
constexpr double copyWait = 0.01;

// How often the clipboard changed in answer to one copy keystroke.
std::int64_t copiedBy(const AXUIElementRef& application) {
  Pasteboard& general = platform().pasteboards.general();
  const std::int64_t before = general.changeCount();
  postCommandKeystroke(application, copyKey);
  platform().clock.sleep(copyWait);
  return general.changeCount() - before;
}

std::int64_t copyUntilAnswered(const AXUIElementRef& application) {
  std::int64_t changes = 0;
  for (int retry = 0; changes == 0 && retry < mostCopies; ++retry) {
    changes = copiedBy(application);
    platform().log.write(filledInOrder("retry = %@ changeCount=%@ ",
                                       {std::to_string(retry), std::to_string(changes)}));
  }
  return changes;
}

std::string loggedText(Pasteboard& selection) {
  if (isConcealed(selection))
    return "concealed";
  return selection.string(pasteboardType::string).value_or("(null)");
}

void logCapture(std::int64_t changes) {
  Pasteboard& selection = privatePasteboard();
  const std::vector<std::string> types = selection.types();
  platform().log.write(
      filledInOrder("types=%@  contents(NSStringPboardType)=[%@] \nchangeCount=%@",
                    {descriptionOf(PropertyList::Array(types.begin(), types.end())),
                     loggedText(selection), std::to_string(changes)}));
}

} // namespace

void TVController::setSelectionToPasteboard(const AXUIElementRef& application) {
  Pasteboard& general = platform().pasteboards.general();
  muteVolume(true); // an application with nothing to copy beeps
  backUpGeneralPasteboard();
  clearPasteboard(general);
  const std::int64_t changes = copyUntilAnswered(application);
  muteVolume(false);
  captureGeneralPasteboard();
  restoreGeneralPasteboard();
  logCapture(changes);
}

} // namespace tavrel
