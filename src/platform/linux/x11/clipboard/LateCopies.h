#pragma once

#include "platform/linux/x11/clipboard/SelectionConnection.h"

namespace tavrel {

/// Tells a copy that a program makes too late, for key presses of ours that it had not got to, from
/// one that the person makes. Late is what the program with the keyboard focus copies within three
/// seconds while the person has pressed nothing: neither a key (but modifiers) nor a button. What
/// the person presses while a menu of ours is open goes to that menu and does not count.
class LateCopies {
public:
  /// `ownWindows`: any window of the connection that shows our menus; 0 when there is none.
  LateCopies(SelectionConnection& connection, xcb_window_t ownWindows);

  void expect();
  void stop();
  [[nodiscard]] bool isExpecting() const { return isExpecting_; }
  /// Stops when nobody is that late any more.
  void look();
  void handle(const xcb_generic_event_t& event);
  [[nodiscard]] bool isLate(xcb_window_t owner);

private:
  void selectPresses(std::uint32_t events);
  void findModifiers();
  [[nodiscard]] xcb_window_t windowInFront();
  [[nodiscard]] bool isMenuOpen();
  [[nodiscard]] bool isPress(const xcb_generic_event_t& event) const;

  SelectionConnection& connection_;
  xcb_window_t ownWindows_;
  std::uint8_t inputExtension_ = 0;
  bool isExpecting_ = false;
  int left_ = 0;
  xcb_window_t front_ = XCB_WINDOW_NONE;
  SelectionTime end_;
  std::vector<std::uint32_t> modifiers_;
};

} // namespace tavrel
