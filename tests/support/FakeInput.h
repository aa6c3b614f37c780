#pragma once

#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <utility>
#include <xcb/xcb.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

namespace tavrel {

/// The device that events come from: the XTest one, as for programs, or a physical keyboard.
enum class Device { program, keyboard };

/// Presses keys and buttons of the private display, by the server's codes. Each call returns when
/// the server has processed the event. Can grab keyboard and pointer, too, as another program.
class FakeInput {
public:
  explicit FakeInput(Device device = Device::program) : device_(device) {}
  ~FakeInput() { xcb_disconnect(connection_); }
  FakeInput(const FakeInput&) = delete;
  FakeInput& operator=(const FakeInput&) = delete;

  void down(std::uint8_t key) { fakeKey(XCB_KEY_PRESS, XCB_INPUT_DEVICE_KEY_PRESS, key); }
  void up(std::uint8_t key) { fakeKey(XCB_KEY_RELEASE, XCB_INPUT_DEVICE_KEY_RELEASE, key); }
  /// Releases the key after that many milliseconds.
  void holdAndRelease(std::uint8_t key, std::uint32_t milliseconds) {
    const std::uint32_t usual = std::exchange(pause_, milliseconds);
    up(key);
    pause_ = usual;
  }
  /// Presses the key after that many milliseconds.
  void waitAndPress(std::uint8_t key, std::uint32_t milliseconds) {
    const std::uint32_t usual = std::exchange(pause_, milliseconds);
    down(key);
    pause_ = usual;
  }
  void tap(std::uint8_t key) {
    down(key);
    up(key);
  }
  void buttonDown(std::uint8_t button) { fake(XCB_BUTTON_PRESS, button, 0); }
  void buttonUp(std::uint8_t button) { fake(XCB_BUTTON_RELEASE, button, 0); }
  void click(std::uint8_t button) {
    buttonDown(button);
    buttonUp(button);
  }
  void movePointer(std::int16_t x, std::int16_t y) { fake(XCB_MOTION_NOTIFY, 0, 0, x, y); }

  [[nodiscard]] bool grabKeyboardAndPointer() {
    constexpr auto mode = XCB_GRAB_MODE_ASYNC;
    auto* keyboard = xcb_grab_keyboard_reply(
        connection_, xcb_grab_keyboard(connection_, 0, root(), XCB_CURRENT_TIME, mode, mode),
        nullptr);
    auto* pointer =
        xcb_grab_pointer_reply(connection_,
                               xcb_grab_pointer(connection_, 0, root(), XCB_EVENT_MASK_BUTTON_PRESS,
                                                mode, mode, 0, 0, XCB_CURRENT_TIME),
                               nullptr);
    const bool held = keyboard && keyboard->status == XCB_GRAB_STATUS_SUCCESS && pointer &&
                      pointer->status == XCB_GRAB_STATUS_SUCCESS;
    std::free(keyboard);
    std::free(pointer);
    return held;
  }
  /// Whether the combination was free.
  [[nodiscard]] bool grabKey(std::uint8_t key, std::uint16_t modifiers) {
    xcb_generic_error_t* refused = xcb_request_check(
        connection_, xcb_grab_key_checked(connection_, 0, root(), modifiers, key,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    std::free(refused);
    return !refused;
  }
  void ungrabKey(std::uint8_t key, std::uint16_t modifiers) {
    xcb_ungrab_key(connection_, key, root(), modifiers);
    waitUntilDone();
  }

  void waitUntilDone() {
    std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
  }

private:
  [[nodiscard]] xcb_window_t root() const {
    return xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
  }
  void fakeKey(std::uint8_t core, std::uint8_t ofDevice, std::uint8_t key) {
    if (device_ == Device::program)
      return fake(core, key, 0);
    const std::uint8_t first = xcb_get_extension_data(connection_, &xcb_input_id)->first_event;
    fake(static_cast<std::uint8_t>(first + ofDevice), key, keyboard());
  }
  void fake(std::uint8_t type, std::uint8_t detail, std::uint8_t device, std::int16_t x = 0,
            std::int16_t y = 0) {
    xcb_test_fake_input(connection_, type, detail, pause_, root(), x, y, device);
    waitUntilDone();
  }
  // The keyboard of Xvfb, which counts as a physical one.
  [[nodiscard]] std::uint8_t keyboard() {
    if (keyboard_ != 0)
      return keyboard_;
    auto* devices = xcb_input_xi_query_device_reply(
        connection_, xcb_input_xi_query_device(connection_, XCB_INPUT_DEVICE_ALL), nullptr);
    for (auto each = xcb_input_xi_query_device_infos_iterator(devices); each.rem > 0;
         xcb_input_xi_device_info_next(&each)) {
      const std::string_view name(
          xcb_input_xi_device_info_name(each.data),
          static_cast<std::size_t>(xcb_input_xi_device_info_name_length(each.data)));
      if (name == "Xvfb keyboard")
        keyboard_ = static_cast<std::uint8_t>(each.data->deviceid);
    }
    std::free(devices);
    return keyboard_;
  }

  Device device_;
  std::uint32_t pause_ = 2; ///< milliseconds before each event, so that no two have the same time
  xcb_connection_t* connection_ = xcb_connect(nullptr, nullptr);
  std::uint8_t keyboard_ = 0;
};

/// Server key codes (evdev) of some keys.
namespace serverKey {
inline constexpr std::uint8_t one = 10, a = 38, s = 39, c = 54, f12 = 96, numLock = 77;
inline constexpr std::uint8_t control = 37, rightControl = 105, shift = 50, alt = 64, super = 133,
                              capsLock = 66;
} // namespace serverKey

} // namespace tavrel
