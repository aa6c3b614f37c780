#pragma once

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace tavrel {

/// A window with an X connection of its own, as of another program, which records the keys it gets.
class OtherWindow {
public:
  enum class Extent { plain, fullScreen };

  explicit OtherWindow(Extent extent = Extent::plain) {
    const std::uint32_t values[] = {screen()->white_pixel,
                                    XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE};
    xcb_create_window(server_, XCB_COPY_FROM_PARENT, window_, root(), 200, 200, 300, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen()->root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    if (extent == Extent::fullScreen) {
      const xcb_atom_t state = atom("_NET_WM_STATE_FULLSCREEN");
      xcb_change_property(server_, XCB_PROP_MODE_REPLACE, window_, atom("_NET_WM_STATE"),
                          XCB_ATOM_ATOM, 32, 1, &state);
    }
    xcb_map_window(server_, window_);
    xcb_flush(server_);
  }
  ~OtherWindow() { xcb_disconnect(server_); }
  OtherWindow(const OtherWindow&) = delete;
  OtherWindow& operator=(const OtherWindow&) = delete;

  [[nodiscard]] bool hasFocus() {
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(server_, xcb_get_input_focus(server_), nullptr), &std::free);
    return reply && reply->focus == window_;
  }

  /// The pixels of the screen that it covers, once it has them.
  [[nodiscard]] bool coversScreen() {
    const Reply<xcb_get_geometry_reply_t> reply(
        xcb_get_geometry_reply(server_, xcb_get_geometry(server_, window_), nullptr), &std::free);
    return reply && reply->width == screen()->width_in_pixels &&
           reply->height == screen()->height_in_pixels;
  }

  /// How many keys have come so far.
  [[nodiscard]] int keys() {
    (void)hasFocus(); // a round trip: what was sent before it is here
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(server_), &std::free})
      if ((event->response_type & 0x7f) == XCB_KEY_PRESS)
        keys_.push_back(reinterpret_cast<const xcb_key_press_event_t&>(*event));
    return static_cast<int>(keys_.size());
  }
  /// How often one of them has, by the server's number, with these modifiers at least.
  [[nodiscard]] int keys(std::uint8_t key, std::uint16_t modifiers = 0) {
    (void)keys();
    return static_cast<int>(std::count_if(keys_.begin(), keys_.end(), [&](const auto& event) {
      return event.detail == key && (event.state & modifiers) == modifiers;
    }));
  }
  /// The server's numbers of the keys that have come, in their order.
  [[nodiscard]] std::vector<std::uint8_t> typed() {
    (void)keys();
    std::vector<std::uint8_t> codes;
    for (const auto& key : keys_)
      codes.push_back(key.detail);
    return codes;
  }
  void forgetKeys() {
    (void)keys();
    keys_ = {};
  }

private:
  template <typename Type> using Reply = std::unique_ptr<Type, decltype(&std::free)>;
  [[nodiscard]] xcb_screen_t* screen() const {
    return xcb_setup_roots_iterator(xcb_get_setup(server_)).data;
  }
  [[nodiscard]] xcb_window_t root() const { return screen()->root; }
  [[nodiscard]] xcb_atom_t atom(const std::string& name) const {
    const auto length = static_cast<std::uint16_t>(name.size());
    const Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(server_, xcb_intern_atom(server_, 0, length, name.c_str()), nullptr),
        &std::free);
    return reply->atom;
  }

  xcb_connection_t* server_ = xcb_connect(nullptr, nullptr);
  xcb_window_t window_ = xcb_generate_id(server_);
  std::vector<xcb_key_press_event_t> keys_;
};

} // namespace tavrel
