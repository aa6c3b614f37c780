#include "bridge/BridgeMessage.h"
#include "controller/TVApplication.h"
#include "controller/TVController.h"
#include "exec/FileActions.h"
#include "exec/ScriptRunner.h"
#include "invoke/KeyState.h"
#include "maint/UpdateCheck.h"
#include "menu/PathHelpers.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"

namespace tavrel {

namespace {

// `sOptionKeyPressed` is of the last menu choice, and this request comes from none.
void runScriptFile(const std::string& path) {
  if (CheckOptionKey())
    platform().workspace.openFile(path);
  else
    execScript(path);
}

void openPath(const std::string& path, TVController& controller) {
  if (isDirectory(path, CleanPath::yes) == DirectoryKind::folder)
    controller.openFolder(path);
  else
    platform().workspace.openFile(path);
}

void answerMessage(const std::string& messageName) {
  if (messageName == "TVRM_CheckUpdate")
    doCheckUpdates();
}

std::string orNone(const std::string* text) {
  return text ? *text : std::string();
}

} // namespace

void TVController::receiveNotificationFromContextMenu(const Notification& notification) {
  const PropertyList::Dictionary& userInfo = notification.userInfo;
  const std::string* path = stringFor(userInfo, "path");
  switch (bridgeMessage(notification.name)) {
  case BridgeMessage::execScript:
    return execScriptFor(userInfo);
  case BridgeMessage::quitProcess:
    return askToQuit(orNone(path));
  case BridgeMessage::execServices:
    return execServices(orNone(stringFor(userInfo, "serviceName")));
  case BridgeMessage::openWithPathFinder:
    return path ? openPath(*path, *this) : void();
  case BridgeMessage::revealInFinder:
    return path ? showInFinder(*path) : void();
  case BridgeMessage::showMessage:
    return answerMessage(orNone(stringFor(userInfo, "messageName")));
  case BridgeMessage::unknown:
    return;
  }
}

// The host is stored even when no script follows: later items see what the plug-in's menu was over.
void TVController::execScriptFor(const PropertyList::Dictionary& userInfo) {
  const std::string* host = stringFor(userInfo, "hostName");
  host_.hostName = orNone(host);
  host_.application = {};
  application_.setHostName(host ? std::optional(*host) : std::nullopt);
  if (const std::string* path = stringFor(userInfo, "path"))
    runScriptFile(*path);
  else if (const std::string* source = stringFor(userInfo, "sourceCode"))
    execScriptSource(*source);
}

} // namespace tavrel
