#pragma once

#include <chrono>
#include <cstdlib>
#include <memory>
#include <poll.h>
#include <string>
#include <string_view>
#include <xcb/xcb.h>

namespace tavrel {

/// Sees the menus of a program appear on the display: windows that no window manager places.
class MenuWatch {
public:
  explicit MenuWatch(std::string windowClass) : class_(std::move(windowClass)) {
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_, root, XCB_CW_EVENT_MASK, &mask);
    std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
  }
  ~MenuWatch() { xcb_disconnect(connection_); }
  MenuWatch(const MenuWatch&) = delete;
  MenuWatch& operator=(const MenuWatch&) = delete;

  /// Whether one has appeared since the watch began, or does before the deadline.
  [[nodiscard]] bool appears(std::chrono::steady_clock::time_point deadline) {
    while (std::chrono::steady_clock::now() < deadline) {
      const Reply<xcb_generic_event_t> event(xcb_poll_for_event(connection_), &std::free);
      if (event && isMenu(*event))
        return true;
      pollfd waiting{xcb_get_file_descriptor(connection_), POLLIN, 0};
      if (!event)
        ::poll(&waiting, 1, 20);
    }
    return false;
  }

private:
  template <typename Content> using Reply = std::unique_ptr<Content, decltype(&std::free)>;

  [[nodiscard]] bool isMenu(const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7F) != XCB_MAP_NOTIFY)
      return false;
    const auto& map = reinterpret_cast<const xcb_map_notify_event_t&>(event);
    return map.override_redirect != 0 && classOf(map.window).find(class_) != std::string::npos;
  }
  [[nodiscard]] std::string classOf(xcb_window_t window) {
    const Reply<xcb_get_property_reply_t> names(
        xcb_get_property_reply(
            connection_,
            xcb_get_property(connection_, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 64),
            nullptr),
        &std::free);
    if (!names)
      return {};
    return {static_cast<const char*>(xcb_get_property_value(names.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(names.get()))};
  }

  std::string class_;
  xcb_connection_t* connection_ = xcb_connect(nullptr, nullptr);
};

} // namespace tavrel
