#pragma once

#include "platform/linux/x11/clipboard/CopySource.h"

#include <optional>
#include <set>

namespace tavrel {

/// Tells late copies from copies of the user. A capture has a program copy and then restores the
/// clipboard; a slow program copies after that, or once more (GIMP 2.10 and LibreOffice 7.4 do),
/// and would overwrite what was restored. A copy is late when the program that was asked makes it
/// within three seconds, and the user has pressed nothing meanwhile: no key but modifiers, no
/// button but the wheel. What the user presses in an open menu of ours does not count.
class LateCopies {
public:
  /// `ownWindows`: any window number of the connection that shows our menus; 0 for none.
  LateCopies(SelectionConnection& connection, xcb_window_t ownWindows);

  /// The clipboard has been restored: late copies of the source may come from now on.
  void expect(const CopySource& source);
  /// Three more seconds.
  void prolong();
  void stop();
  [[nodiscard]] bool isExpecting() const { return isExpecting_; }
  /// Stops once three seconds have passed since `expect`.
  void stopAfterTimeout();
  void handle(const xcb_generic_event_t& event);
  /// Whether a copy that this window has just made is late.
  [[nodiscard]] bool isLate(xcb_window_t owner);
  /// Whether the source may have left the clipboard without an owner, which this window was.
  [[nodiscard]] bool isLateClear(xcb_window_t ownerBefore);

private:
  void selectPresses(std::uint32_t events);
  void findModifiers();
  void findMenus();
  [[nodiscard]] bool isOpenMenu(xcb_window_t window);
  void followMenus(const xcb_generic_event_t& event);
  [[nodiscard]] bool isPress(const xcb_generic_event_t& event) const;

  SelectionConnection& connection_;
  xcb_window_t ownWindows_;
  std::uint8_t inputExtension_ = 0;
  bool isExpecting_ = false;
  int remaining_ = 0;
  std::optional<CopySource> source_;
  SelectionTime deadline_;
  std::vector<std::uint32_t> modifiers_;
  std::set<xcb_window_t> menus_; ///< those of ours that are open
};

} // namespace tavrel
