#pragma once

#include "platform/linux/x11/clipboard/SelectionConnection.h"

namespace tavrel {

/// Asks a window whether its program is alive (_NET_WM_PING of EWMH 1.5). The answer comes when the
/// program has read all that was sent to the window before, keys included. One question at a time.
class WindowPings {
public:
  explicit WindowPings(SelectionConnection& connection) : connection_(connection) {}
  ~WindowPings() { stop(); }
  WindowPings(const WindowPings&) = delete;
  WindowPings& operator=(const WindowPings&) = delete;

  /// Whether the window's program says that it answers.
  [[nodiscard]] bool isAnswering(xcb_window_t window);
  void send(xcb_window_t window);
  void handle(const xcb_generic_event_t& event);
  /// Whether the last question has not been answered.
  [[nodiscard]] bool isAwaited() const { return time_ != XCB_CURRENT_TIME; }
  /// The window of that question.
  [[nodiscard]] xcb_window_t window() const { return window_; }
  void stop();

private:
  void watchRoot(std::uint32_t events);

  SelectionConnection& connection_;
  xcb_window_t window_ = XCB_WINDOW_NONE;
  xcb_timestamp_t time_ = XCB_CURRENT_TIME; ///< of the question
};

} // namespace tavrel
