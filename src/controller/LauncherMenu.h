#pragma once

#include "base/PropertyList.h"
#include "platform/Menu.h"
#include "platform/StatusBar.h"

#include <memory>
#include <optional>

namespace tavrel {

/// The user's menu: the records it is built from, and the one menu that shows them, under the
/// status item and at the pointer.
struct LauncherMenu {
  std::optional<PropertyList> menuRootArray; ///< an array of item records; nothing: empty menu
  Menu statusMenu;                           ///< emptied and refilled, never replaced
  bool needToRecreateMenu = false;           ///< the tree changed behind the menu's back
  std::unique_ptr<StatusItem> statusItem;    ///< null while none is shown
};

} // namespace tavrel
