#include "controller/ProcessState.h"
#include "controller/TVApplication.h"
#include "controller/TVController.h"
#include "invoke/KeyState.h"
#include "menu/ApplicationName.h"
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
  launcher_.needToRecreateMenu = false;
  launcher_.statusMenu.removeAll();
  createContextMenu(launcher_.statusMenu, rootRecords(launcher_.menuRootArray), 0);
}

void TVController::activateStatusMenu() {
  if (launcher_.statusItem)
    return;
  launcher_.statusItem = platform().statusBar.addItem(variableLength);
  setIcon(*launcher_.statusItem, normalIcon);
  launcher_.statusItem->setHighlightMode(true);
  launcher_.statusItem->setMenu(&launcher_.statusMenu);
}

void TVController::deactivateStatusMenu() {
  launcher_.statusItem.reset();
}

void TVController::menuWillOpen(Menu& menu) {
  if (&menu == &launcher_.statusMenu && launcher_.statusItem)
    setIcon(*launcher_.statusItem, popupPanel_.visible ? popupIcon : openIcon);
}

void TVController::menuDidClose(Menu& menu) {
  if (&menu != &launcher_.statusMenu)
    return;
  if (launcher_.statusItem)
    setIcon(*launcher_.statusItem, normalIcon);
  if (!gExecutingScript) // a script may still read the selection
    forgetConcealedSelection();
}

void TVController::menuNeedsUpdate(Menu& menu) {
  if (gExecutingScript)
    return;
  if (&menu == &launcher_.statusMenu)
    prepareStatusMenu();
  else if (menu.title != groupMenuTitle && !isKeyPreessed())
    attachFolderContentsFor(menu);
}

void TVController::prepareStatusMenu() {
  captureFrontSelection();
  host_.filesSelected = isSelectionFiles();
  if (launcher_.needToRecreateMenu)
    createStatusMenu();
  validateContextMenu(launcher_.statusMenu, rootRecords(launcher_.menuRootArray), 0);
}

void TVController::captureFrontSelection() {
  const std::optional<std::int32_t> process = recordFrontApplication();
  if (!process)
    return clearPasteboard(privatePasteboard()); // no application to copy from
  const AXUIElementRef applicationRef = platform().accessibility.applicationElement(*process);
  if (host_.hostName == ownName)
    return;
  if (captureScriptFor(host_.hostName))
    setSelectionToPasteboardWithScript(host_.hostName);
  else
    setSelectionToPasteboard(applicationRef);
}

std::optional<std::int32_t> TVController::recordFrontApplication() {
  const auto front = platform().applications.active();
  std::optional<std::string> name;
  if (front && front->path)
    name = applicationName(*front->path, *front);
  host_.hostName = name.value_or("");
  host_.application = front.value_or(RunningApplication());
  application_.setHostName(std::move(name));
  return front ? std::optional(front->processIdentifier) : std::nullopt;
}

void TVController::menuItemChosen(MenuItem& item) {
  // The menu has closed, and may be called up again while the item runs.
  popupPanel_.visible = false;
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
