#pragma once

#include "platform/linux/x11/clipboard/SelectionConnection.h"

#include <map>

namespace tavrel {

/// Asks windows whether their programs are alive (_NET_WM_PING of EWMH 1.5). The answer comes when
/// the program has read all that was sent to the window before, keys included. One question to a
/// window at a time.
class WindowPings {
public:
  explicit WindowPings(SelectionConnection& connection) : connection_(connection) {}
  WindowPings(const WindowPings&) = delete;
  WindowPings& operator=(const WindowPings&) = delete;

  /// Whether the window's program says that it answers.
  [[nodiscard]] bool isAnswering(xcb_window_t window);
  void send(xcb_window_t window);
  void handle(const xcb_generic_event_t& event);
  /// Whether the last question to this window, or to any, has not been answered.
  [[nodiscard]] bool isAwaited(xcb_window_t window) const { return awaited_.contains(window); }
  [[nodiscard]] bool isAwaited() const { return !awaited_.empty(); }
  void forget(xcb_window_t window);

private:
  SelectionConnection& connection_;
  std::map<xcb_window_t, xcb_timestamp_t> awaited_; ///< when each was asked
};

} // namespace tavrel
