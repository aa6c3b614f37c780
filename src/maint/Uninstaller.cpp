#include "maint/Uninstaller.h"

#include "controller/Localized.h"
#include "maint/NTLoginItemMgr.h"
#include "platform/Alerts.h"
#include "platform/Authorization.h"
#include "platform/Bundle.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/SystemEvents.h"
#include "platform/Workspace.h"

#include <iostream>

namespace tavrel {

namespace {

constexpr const char* pluginPath = "/Library/Contextual Menu Items/Tavrel.plugin";
constexpr const char* panePath = "/Library/PreferencePanes/TavrelPref.prefPane";
constexpr const char* uninstallRight = "qorvane.tavrel.uninstall";
constexpr std::size_t readSize = 128;

std::string inHome(const char* path) {
  return platform().files.homeDirectory().append(path);
}

bool isConfirmed() {
  return platform().alerts.run({.title = localized("Uninstall Tavrel from your system."),
                                .message = localized("Are you sure?"),
                                .defaultButton = localized("Uninstall"),
                                .alternateButton = localized("Cancel")}) == AlertAnswer::standard;
}

bool isLogoutWanted() {
  return platform().alerts.run(
             {.title = localized("Tavrel files have been moved to the Trash."),
              .message = localized("You need to logout in order to finish the uninstallation."),
              .defaultButton = localized("Logout"),
              .alternateButton = localized("Later")}) == AlertAnswer::standard;
}

// The login item goes even when the rights were refused.
bool removeFromSystem() {
  const bool granted = uninstallFromSystem();
  uninstallLoginItems();
  return granted;
}

bool removePieces() {
  if (platform().files.exists(pluginPath))
    return removeFromSystem();
  platform().workspace.removeFile(inHome(pluginPath));
  if (platform().files.exists(panePath))
    return removeFromSystem();
  platform().workspace.removeFile(inHome(panePath));
  uninstallLoginItems();
  return true;
}

bool isGranted(AuthorizationRef& reference) {
  return reference.copyRights(uninstallRight, authorizationFlag::interactionAllowed |
                                                  authorizationFlag::extendRights |
                                                  authorizationFlag::preAuthorize);
}

} // namespace

void uninstallTavrel() {
  if (isConfirmed() && removePieces() && isLogoutWanted())
    SendAppleEventToSystemProcess(kAEReallyLogOut);
}

bool uninstallFromSystem() {
  const auto reference = platform().authorization.create();
  if (!reference)
    return false;
  const bool granted = isGranted(*reference);
  if (granted)
    for (const std::string& path :
         {std::string(pluginPath), inHome(pluginPath), std::string(panePath), inHome(panePath)})
      authorizedRemove(*reference, path);
  reference->free(authorizationFlag::destroyRights);
  return granted;
}

void authorizedRemove(AuthorizationRef& reference, const std::string& path) {
  const auto output = reference.executeWithPrivileges("/bin/rm", {"-rf", path});
  if (!output)
    return;
  for (std::string read = (*output)(readSize); !read.empty(); read = (*output)(readSize))
    std::cout << read;
  std::cout.flush();
}

void uninstallLoginItems() {
  const std::string application = platform().bundle.bundlePath();
  if (NTLoginItemMgr::loginIndex(application) != -1)
    NTLoginItemMgr::removeLoginItem(application);
}

std::int32_t SendAppleEventToSystemProcess(std::uint32_t eventIdentifier) {
  return platform().systemEvents.send({kCoreEventClass, eventIdentifier});
}

} // namespace tavrel
