#include "base/PathString.h"
#include "controller/ProcessState.h"
#include "controller/TVApplication.h"
#include "controller/TVController.h"
#include "invoke/KeyState.h"
#include "menu/MenuTitles.h"
#include "platform/Applications.h"
#include "platform/Images.h"
#include "platform/Platform.h"
#include "selection/CaptureScript.h"
#include "selection/PasteboardCopy.h"
#include "selection/PrivatePasteboard.h"

#include <utility>

namespace tavrel {

namespace {
constexpr double variableLength = -1.0;
constexpr const char* normalIcon = "TavrelBarIcon";
constexpr const char* openIcon = "TavrelBarIcon2";
constexpr const char* popupIcon = "TavrelBarIcon3";
constexpr const char* ownName = "Tavrel";

PropertyList::Array rootRecords(const std::optional<PropertyList>& root) {
  return root ? *root->array() : PropertyList::Array{};
}

void setIcon(StatusItem& item, const char* name) {
  if (const auto image = platform().images.named(name))
    item.setImage(*image);
}
} // namespace

void TVController::createStatusMenu() {
  needToRecreateMenu = false;
  statusMenu.removeAll();
  createContextMenu(statusMenu, rootRecords(menuRootArray), 0);
}

void TVController::activateStatusMenu() {
  if (statusItem)
    return;
  statusItem = platform().statusBar.addItem(variableLength);
  setIcon(*statusItem, normalIcon);
  statusItem->setHighlightMode(true);
  statusItem->setMenu(&statusMenu);
}

void TVController::deactivateStatusMenu() {
  statusItem.reset();
}

void TVController::menuWillOpen(Menu& menu) {
  if (&menu == &statusMenu && statusItem)
    setIcon(*statusItem, popupPanel.visible ? popupIcon : openIcon);
}

void TVController::menuDidClose(Menu& menu) {
  if (&menu != &statusMenu)
    return;
  if (statusItem)
    setIcon(*statusItem, normalIcon);
  if (!gExecutingScript) // else the script is at work on the selection still
    forgetConcealedSelection();
}

void TVController::menuNeedsUpdate(Menu& menu) {
  if (gExecutingScript)
    return;
  if (&menu == &statusMenu)
    prepareStatusMenu();
  else if (menu.title != groupMenuTitle && !isKeyPreessed())
    attachFolderContentsFor(menu);
}

void TVController::prepareStatusMenu() {
  captureFrontSelection();
  filesSelected = isSelectionFiles();
  if (needToRecreateMenu)
    createStatusMenu();
  validateContextMenu(statusMenu, rootRecords(menuRootArray), 0);
}

void TVController::captureFrontSelection() {
  const std::optional<std::int32_t> process = recordFrontApplication();
  if (!process)
    return clearPasteboard(privatePasteboard()); // nobody to wait for
  const AXUIElementRef applicationRef = platform().accessibility.applicationElement(*process);
  if (hostName == ownName)
    return;
  if (captureScriptFor(hostName))
    setSelectionToPasteboardWithScript(hostName);
  else
    setSelectionToPasteboard(applicationRef);
}

std::optional<std::int32_t> TVController::recordFrontApplication() {
  const auto front = platform().applications.active();
  std::optional<std::string> name;
  if (front && front->path)
    name = deletingPathExtension(lastPathComponent(*front->path));
  hostName = name.value_or("");
  application_.setHostName(std::move(name));
  return front ? std::optional(front->processIdentifier) : std::nullopt;
}

void TVController::menuItemChosen(MenuItem& item) {
  popupPanel.visible = false; // its menu has closed, and may be called up again while the item runs
  switch (item.action) {
  case MenuAction::none:
    return;
  case MenuAction::statusMenuDidSelected:
    return statusMenuDidSelected(item);
  case MenuAction::fileItemDidSelected:
    return fileItemDidSelected(item);
  case MenuAction::recentItemSelected:
    return recentItemSelected(item);
  case MenuAction::processItemSelected:
    return processItemSelected(item);
  case MenuAction::openTavrelPref:
    return openTavrelPref(item);
  }
}

void TVController::statusMenuDidSelected(MenuItem& menuItem) {
  sOptionKeyPressed = CheckOptionKey();
  if (menuItem.representedObject)
    executeItem(*menuItem.representedObject, false, &menuItem);
}

} // namespace tavrel
