#include "platform/linux/x11/clipboard/WindowPings.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <algorithm>

namespace tavrel {

bool WindowPings::isAnswering(xcb_window_t window) {
  xcb_connection_t* server = connection_.server();
  constexpr std::uint32_t mostProtocols = 64;
  const auto list = xcbReply(
      xcb_get_property_reply(server,
                             xcb_get_property(server, 0, window, connection_.atom("WM_PROTOCOLS"),
                                              XCB_ATOM_ATOM, 0, mostProtocols),
                             nullptr));
  if (!list || list->format != 32)
    return false;
  const auto* protocols = static_cast<const xcb_atom_t*>(xcb_get_property_value(list.get()));
  const auto* end = protocols + list->value_len;
  return std::find(protocols, end, connection_.atom("_NET_WM_PING")) != end;
}

// Answers are sent to the root window: by most to those who watch its children, by Qt 6.4 to those
// who watch the root window itself.
void WindowPings::send(xcb_window_t window) {
  if (awaited_.empty())
    connection_.watchRoot(SelectionConnection::RootWatch::begins);
  const xcb_timestamp_t time = connection_.now(); // toolkits take it for a time of the server
  awaited_[window] = time;
  xcb_client_message_event_t ping{};
  ping.response_type = XCB_CLIENT_MESSAGE;
  ping.format = 32;
  ping.window = window;
  ping.type = connection_.atom("WM_PROTOCOLS");
  ping.data.data32[0] = connection_.atom("_NET_WM_PING");
  ping.data.data32[1] = time;
  ping.data.data32[2] = window;
  xcb_send_event(connection_.server(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&ping));
  xcb_flush(connection_.server());
}

void WindowPings::handle(const xcb_generic_event_t& event) {
  const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
  if (!isAwaited() || kindOf(event) != XCB_CLIENT_MESSAGE || message.window != connection_.root() ||
      message.type != connection_.atom("WM_PROTOCOLS") ||
      message.data.data32[0] != connection_.atom("_NET_WM_PING"))
    return;
  const auto asked = awaited_.find(message.data.data32[2]);
  if (asked != awaited_.end() && asked->second == message.data.data32[1])
    forget(asked->first);
}

void WindowPings::forget(xcb_window_t window) {
  if (awaited_.erase(window) > 0 && awaited_.empty())
    connection_.watchRoot(SelectionConnection::RootWatch::ends);
}

} // namespace tavrel
