#pragma once

#include "controller/TVController.h"

namespace tavrel {

/// The controller's state, for tests to look at and to change.
struct ControllerState {
  explicit ControllerState(TVController& controller)
      : settings(controller.settings_), images(controller.images_),
        popupPanel(controller.popupPanel_), menuRootArray(controller.launcher_.menuRootArray),
        statusMenu(controller.launcher_.statusMenu), statusItem(controller.launcher_.statusItem),
        needToRecreateMenu(controller.launcher_.needToRecreateMenu),
        hostName(controller.host_.hostName), filesSelected(controller.host_.filesSelected),
        excludeUIElements(controller.gestures_.excludeUIElements) {}

  Settings& settings;
  MenuImages& images;
  PopupPanel& popupPanel;
  std::optional<PropertyList>& menuRootArray;
  Menu& statusMenu;
  std::unique_ptr<StatusItem>& statusItem;
  bool& needToRecreateMenu;
  std::string& hostName;
  bool& filesSelected;
  std::vector<std::string>& excludeUIElements;
};

} // namespace tavrel
