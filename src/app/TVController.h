#pragma once

#include "app/PopupPanel.h"
#include "app/Settings.h"
#include "menu/MenuIcons.h"
#include "platform/MenuActionTarget.h"
#include "platform/StatusBar.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

class TVApplication;

/// The central controller: it owns every long-lived object of the application and answers what
/// the desktop tells it. Each folder defines its own group of operations.
class TVController final : public MenuDelegate, public MenuActionTarget {
public:
  explicit TVController(TVApplication& application);
  ~TVController() override;

  // Launch (app/)
  void applicationWillFinishLaunching();

  // Menus (menu/)
  /// Fills an empty menu from records; level 0 gets the fixed entries, too.
  void createContextMenu(Menu& menu, const PropertyList::Array& array, int level);

  // The status item (invoke/)
  void createStatusMenu();
  void activateStatusMenu();
  void deactivateStatusMenu();
  void menuWillOpen(Menu& menu) override;
  void menuDidClose(Menu& menu) override;
  void menuNeedsUpdate(Menu& menu) override;
  void menuItemChosen(MenuItem& item) override;
  void statusMenuDidSelected(MenuItem& menuItem);

  // Actions (exec/)
  /// Carries out an item. `menuItem` is the chosen entry, null from a hot key.
  void executeItem(const PropertyList& item, bool fromHotKey, const MenuItem* menuItem);
  void fileItemDidSelected(MenuItem& menuItem);
  void openFolder(const std::string& path);
  /// The settings entry: its alternate adds the captured files to the tree first.
  void openTavrelPref(MenuItem& menuItem);
  void insertFileItemsToPlist(const std::vector<std::string>& paths);

  Settings settings;
  MenuImages images;
  std::optional<PropertyList> menuRootArray; ///< an array of item records; nothing: empty menu
  Menu statusMenu;                           ///< emptied and refilled, never replaced
  std::unique_ptr<StatusItem> statusItem;    ///< null while none is shown
  PopupPanel popupPanel;
  std::string hostName; ///< of the application in front when the menu was called up
  std::vector<std::string> excludeUIElements;
  bool needToRecreateMenu = false; ///< the tree changed behind the menu's back
  bool filesSelected = false;      ///< the captured selection holds files

private:
  void addFixedTop(Menu& menu);
  void addFixedBottom(Menu& menu);
  void recordFrontApplication();

  TVApplication& application_;
};

} // namespace tavrel
