#include "menu/RunningApplications.h"

#include "controller/TVController.h"
#include "exec/ItemAction.h"
#include "exec/PerformAction.h"
#include "invoke/KeyState.h"
#include "menu/MenuIcons.h"
#include "platform/Applications.h"
#include "platform/Platform.h"

#include <algorithm>

namespace tavrel {

namespace {

// Empty also when the application in front has no path.
std::string nameInFront() {
  const auto front = platform().applications.active();
  return front && front->path ? front->name.value_or("") : std::string();
}

std::optional<RunningApplication> firstNamed(const std::string& name) {
  const std::vector<RunningApplication> launched = platform().applications.launched();
  const auto found = std::ranges::find(launched, name, &RunningApplication::name);
  return found == launched.end() ? std::nullopt : std::optional(*found);
}

} // namespace

void addRunningApplications(Menu& menu) {
  const std::string inFront = nameInFront();
  const EntryEffects effects = effectsOf(actionForApplication, {});
  for (const RunningApplication& application : platform().applications.launched()) {
    if (!application.name)
      continue;
    MenuItem& item = menu.add({.title = *application.name});
    item.action = MenuAction::processItemSelected;
    item.effects = effects;
    item.state = *application.name == inFront ? MenuItemState::on : MenuItemState::off;
    setMenuItemIcon(item, application.path);
  }
}

void TVController::processItemSelected(MenuItem& menuItem) {
  const auto application = firstNamed(menuItem.title);
  if (!application)
    return;
  ItemChoice choice;
  choice.optionHeld = CheckOptionKey();
  choice.commandHeld = CheckCommandKey();
  perform(actionForApplication(choice),
          {.path = application->path.value_or(""), .process = application->serialNumber}, *this);
}

} // namespace tavrel
