#include "controller/TVController.h"
#include "menu/FolderContents.h"
#include "menu/MenuTitles.h"
#include "menu/RecentItems.h"
#include "menu/RunningApplications.h"

namespace tavrel {

void TVController::attachFolderContentsFor(Menu& menu) {
  if (menu.title.empty())
    return;
  menu.removeAll();
  if (menu.title == processMenuTitle)
    addRunningApplications(menu);
  else if (menu.title == recentMenuTitle)
    addRecentItems(menu);
  else
    addFolderContents(menu, cleanedUpPath(menu.title),
                      {settings_.browseFolder, settings_.browsePackage, images_, this});
}

} // namespace tavrel
