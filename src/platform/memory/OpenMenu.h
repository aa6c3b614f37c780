#pragma once

#include "platform/MenuActionTarget.h"
#include "platform/common/MenuRows.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// A menu on the memory desktop's screen, in the hands of a test. Menus and submenus open and close
/// with the callbacks of every desktop: will-open, needs-update, the chosen entry, did-close.
class OpenMenu {
public:
  OpenMenu(Menu& menu, OptionKey option);

  /// The innermost open menu.
  [[nodiscard]] Menu& menu() const { return *levels_.back(); }
  /// Its rows, as they show for the Option key as it is now.
  [[nodiscard]] std::vector<const MenuItem*> rows() const;
  /// The first of them with a title; null when none has it.
  [[nodiscard]] const MenuItem* row(std::string_view title) const;

  void holdOption() { option_ = OptionKey::down; }
  void releaseOption() { option_ = OptionKey::up; }

  /// Opens the submenu of a row of the innermost menu; false when it has none or is disabled.
  bool openSubmenu(std::string_view title);
  /// Closes the innermost submenu, if one is open.
  void closeSubmenu();

  /// Chooses a row by its titles from the innermost open menu inwards, opening submenus on the way.
  /// False when there is no such row or it cannot be chosen. At most one entry is chosen.
  bool choose(const std::vector<std::string>& titles);

  /// What a presenter does at the end: dispatches the chosen entry and closes every level.
  void finish(MenuActionTarget* target);

private:
  void open(const std::shared_ptr<Menu>& menu);
  void closeInnermost();
  bool chooseRow(std::string_view title);

  std::vector<std::shared_ptr<Menu>> levels_;
  std::shared_ptr<MenuItem> chosen_;
  OptionKey option_;
};

} // namespace tavrel
