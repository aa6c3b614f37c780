#pragma once

#include "base/Geometry.h"
#include "platform/MenuActionTarget.h"

namespace tavrel {

enum class MenuFont { standard, small };

/// Shows menus natively. It holds no menu logic: before a menu or a submenu shows it calls the
/// delegate's `menuWillOpen` and `menuNeedsUpdate` and mirrors what the delegate changed; while
/// it is open it shows the rows that `visibleRows` answers for the Option key as it goes down and
/// up; the chosen entry goes to the action target, then the delegate's `menuDidClose` is called.
/// Entries without an action (and without a submenu) and disabled ones cannot be chosen.
class Presenter {
public:
  virtual ~Presenter() = default;

  /// Where chosen entries go, for every menu this presenter and the status bar show. Not owned;
  /// null: nowhere.
  virtual void setActionTarget(MenuActionTarget* target) = 0;

  /// Shows the menu with its top left corner at a point of the screen (origin at the bottom left
  /// of the main screen, as the pointer's location is told) and returns when it has closed and a
  /// chosen entry was dispatched. Timers and connections go on meanwhile. A second call while a
  /// menu is open closes nothing, shows nothing and returns at once.
  virtual void popUp(Menu& menu, Point where, MenuFont font) = 0;

  /// The pointer's location, origin at the bottom left of the main screen.
  [[nodiscard]] virtual Point pointerLocation() = 0;
};

} // namespace tavrel
