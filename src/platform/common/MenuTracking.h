#pragma once

#include "platform/Menu.h"
#include "platform/MenuActionTarget.h"

#include <memory>
#include <vector>

namespace tavrel {

/// Brings what a desktop tells of its native menus into the order that the ports promise: a chosen
/// entry is dispatched before any menu is said to have closed, an inner menu closes before the one
/// it hangs from. For desktops that say that a menu has closed before they say what was chosen.
class MenuTracking {
public:
  void setTarget(MenuActionTarget* target) { target_ = target; }

  /// Whether a menu is open, or has closed and `finish` is yet to come.
  [[nodiscard]] bool isOpen() const;

  /// A menu is about to show: has its delegate fill it. Menus that were closed inside a menu that
  /// stays are said to have closed now.
  void update(const std::shared_ptr<Menu>& menu);
  /// It shows. One that is filled and never shows does not count as open.
  void opened(const Menu& menu);
  void closed(const Menu& menu);
  /// What was chosen waits for `finish`; with no menu open it is dispatched at once.
  void chosen(const std::shared_ptr<MenuItem>& item);
  /// All menus are gone. A menu may open again from within.
  void finish();
  /// The menu is about to be destroyed: it is told nothing more.
  void forget(const Menu& menu);

private:
  enum class State { filled, open, closed };
  struct Level {
    std::shared_ptr<Menu> menu;
    State state = State::filled;
  };
  using Levels = std::vector<Level>;

  [[nodiscard]] Levels::iterator find(const Menu& menu);
  void tellInnerClosed();
  static void tellClosed(Menu& menu);

  MenuActionTarget* target_ = nullptr;
  Levels levels_; ///< outermost first
  Levels gone_;   ///< those that `finish` has yet to tell
  std::shared_ptr<MenuItem> chosen_;
};

} // namespace tavrel
