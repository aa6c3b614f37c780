#pragma once

#include "base/PropertyList.h"
#include "platform/EntryEffects.h"
#include "platform/Image.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

class Menu;

/// What choosing an entry asks of the controller.
enum class MenuAction {
  none,
  statusMenuDidSelected,
  openTavrelPref,
  fileItemDidSelected,
  recentItemSelected,
  processItemSelected,
};

/// The mark at the front of an entry.
enum class MenuItemState { off, on };

/// One entry of a menu: plain data that a presenter shows.
struct MenuItem {
  std::string title{};
  MenuAction action = MenuAction::none;
  std::string keyEquivalent{};                     ///< empty: none
  std::uint32_t keyEquivalentModifierMask = 0;     ///< interface form (base/Modifiers.h)
  std::shared_ptr<Menu> submenu{};                 ///< null: none
  std::optional<PropertyList> representedObject{}; ///< a record, a path or bookmark data
  std::optional<Image> image{};
  MenuItemState state = MenuItemState::off;
  int indentation = 0; ///< levels
  bool hidden = false; ///< takes no part in layout or key matching
  bool enabled = true;
  bool isAlternate = false;
  bool isSeparator = false;
  EntryEffects effects{}; ///< all `nothing` where the title says all there is to say
};

/// Told about the life of a menu on the screen, on the main thread.
class MenuDelegate {
public:
  virtual ~MenuDelegate() = default;
  /// Before the menu shows; the only callback that may change the menu.
  virtual void menuNeedsUpdate(Menu& menu) = 0;
  /// As the menu is about to open, before `menuNeedsUpdate`.
  virtual void menuWillOpen(Menu& menu) = 0;
  /// When the menu is gone and a chosen entry, if any, has been dispatched.
  virtual void menuDidClose(Menu& menu) = 0;
};

/// A list of entries. Entries have a stable address for as long as somebody holds them.
class Menu {
public:
  explicit Menu(std::string menuTitle = {}) : title(std::move(menuTitle)) {}
  Menu(const Menu&) = delete;
  Menu& operator=(const Menu&) = delete;
  /// Takes nested submenus apart one by one, so that the depth of a tree never costs stack.
  ~Menu();

  std::string title;
  MenuDelegate* delegate = nullptr; ///< not owned
  std::vector<std::shared_ptr<MenuItem>> items;

  /// Appends an entry and returns it.
  MenuItem& add(MenuItem item);
  MenuItem& addSeparator();
  void removeAll();
};

} // namespace tavrel
