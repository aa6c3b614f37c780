#include "maint/UpdateAlerts.h"

#include "base/Format.h"
#include "base/Url.h"
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

// The list comes from elsewhere: a file's address in it would start that file.
void openPage(const std::string& url) {
  const std::string scheme = urlScheme(url);
  if ((scheme == "https" || scheme == "http") && url.substr(scheme.size()).starts_with("://"))
    platform().workspace.openUrl(url);
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
  openPage(url);
  if (answer == AlertAnswer::standard)
    openPage(localized("HistoryPageURL"));
}

} // namespace tavrel
