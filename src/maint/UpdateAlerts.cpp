#include "maint/UpdateAlerts.h"

#include "base/Format.h"
#include "controller/Localized.h"
#include "platform/Alerts.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"

namespace tavrel {

namespace {

constexpr const char* product = "Tavrel";

void tell(const char* title, const char* message) {
  (void)platform().alerts.run({.title = filled(localized(title), product),
                               .message = filled(localized(message), product),
                               .defaultButton = localized("OK")});
}

} // namespace

void showUpdateError() {
  tell("UPDATE_ERROR_TITLE", "UPDATE_ERROR_TEXT");
}

void showUpToDate() {
  tell("UP_TO_DATE_TITLE", "UP_TO_DATE_TEXT");
}

void offerNewVersion(const std::string& version, const std::string& url) {
  const AlertAnswer answer = platform().alerts.run(
      {.title = filled(localized("NEW_VERSION_TITLE"), product),
       .message = filledInOrder(localized("NEW_VERSION_TEXT"), {product, version}),
       .defaultButton = localized("Download and Show History"),
       .alternateButton = localized("Cancel"),
       .otherButton = localized("Download")});
  if (answer == AlertAnswer::alternate)
    return;
  platform().workspace.openUrl(url);
  if (answer == AlertAnswer::standard)
    platform().workspace.openUrl(localized("HistoryPageURL"));
}

} // namespace tavrel
