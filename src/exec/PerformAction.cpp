#include "exec/PerformAction.h"

#include "controller/TVController.h"
#include "exec/FileActions.h"
#include "exec/ScriptRunner.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

void perform(ItemAction action, const ActionTarget& target, TVController& controller) {
  switch (action) {
  case ItemAction::nothing:
    return;
  case ItemAction::openFile:
  case ItemAction::openServer:
    platform().workspace.openFile(target.path);
    return;
  case ItemAction::openFolder:
    return controller.openFolder(target.path);
  case ItemAction::openSelectedFiles:
    openFiles(capturedFiles().value_or(std::vector<std::string>()), target.path, target.openMask);
    return;
  case ItemAction::moveSelectedFiles:
    moveSelectedFiles(target.path);
    return;
  case ItemAction::openUrl:
    platform().workspace.openUrl(target.url);
    return;
  case ItemAction::showInFinder:
    return showInFinder(target.path);
  case ItemAction::openFolderWithTerminal:
    return openFolderWithTerminal(target.path);
  case ItemAction::execScript:
    return execScript(target.path);
  case ItemAction::performService:
    return controller.performServiceItem(target.url);
  case ItemAction::bringToFront:
    platform().applications.bringToFront(target.process);
    return;
  case ItemAction::quit:
    return askToQuit(target.path);
  }
}

} // namespace tavrel
