#pragma once

#include <chrono>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>

namespace tavrel {

using SelectionTime = std::chrono::steady_clock::time_point;

struct SelectionEventDeleter {
  void operator()(xcb_generic_event_t* event) const { std::free(event); }
};
using SelectionEvent = std::unique_ptr<xcb_generic_event_t, SelectionEventDeleter>;

[[nodiscard]] inline std::uint8_t kindOf(const xcb_generic_event_t& event) {
  return event.response_type & 0x7F;
}

/// An X connection with a window of its own, for one thread that owns and reads selections. Events
/// go to the handler, also while `wait` waits for one of them.
class SelectionConnection {
public:
  using Handler = std::function<void(const xcb_generic_event_t&)>;
  /// Whether an event is one that the caller waits for; such an event does not go to the handler.
  using EventFilter = std::function<bool(const xcb_generic_event_t&)>;

  /// Null when there is no X server, or one without the extension XFixes.
  [[nodiscard]] static std::unique_ptr<SelectionConnection> create();
  ~SelectionConnection();
  SelectionConnection(const SelectionConnection&) = delete;
  SelectionConnection& operator=(const SelectionConnection&) = delete;

  [[nodiscard]] xcb_connection_t* server() const { return server_; }
  [[nodiscard]] xcb_window_t window() const { return window_; }
  [[nodiscard]] xcb_window_t root() const { return root_; }
  /// The type of the events that report another owner of the clipboard.
  [[nodiscard]] std::uint8_t ownerEvent() const { return ownerEvent_; }
  [[nodiscard]] bool isBroken() const { return xcb_connection_has_error(server_) != 0; }
  /// Whether both windows were made by one program.
  [[nodiscard]] bool areOfOneClient(xcb_window_t a, xcb_window_t b) const;

  /// The window that owns a selection now; none for one without an owner.
  [[nodiscard]] xcb_window_t ownerOf(const std::string& selection);
  [[nodiscard]] xcb_atom_t atom(const std::string& name);
  [[nodiscard]] std::vector<xcb_atom_t> atoms(const std::vector<std::string>& names);
  [[nodiscard]] std::vector<std::string> names(const std::vector<xcb_atom_t>& atoms);

  /// Has events of the root window and its children come as long as anybody wants them.
  enum class RootWatch { begins, ends };
  void watchRoot(RootWatch watch);

  void setHandler(Handler handler) { handler_ = std::move(handler); }
  /// Hands all events that have arrived to the handler.
  void drain();
  /// Handles events until `isOver` answers true, or until the deadline.
  void wait(const EventFilter& isAwaited, const std::function<bool()>& isOver,
            SelectionTime deadline);
  /// Sleeps until an event arrives, `wakeUp` (a file descriptor, -1 for none) becomes readable, or
  /// the deadline has come.
  void sleep(int wakeUp, SelectionTime deadline);

  /// The server's time stamp now, by a round trip; 0 when the server does not answer for a second.
  [[nodiscard]] xcb_timestamp_t now();

private:
  explicit SelectionConnection(xcb_connection_t* server, int screen);
  [[nodiscard]] bool selectOwnerEvents();

  xcb_connection_t* server_;
  xcb_window_t root_;
  xcb_window_t window_;
  std::uint8_t ownerEvent_ = 0;
  int rootWatches_ = 0;
  Handler handler_;
  std::map<std::string, xcb_atom_t> atoms_;
  std::map<xcb_atom_t, std::string> names_;
};

} // namespace tavrel
