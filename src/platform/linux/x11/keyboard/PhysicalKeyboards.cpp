#include "platform/linux/x11/keyboard/PhysicalKeyboards.h"

#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbReply.h"

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <optional>
#include <string_view>
#include <utility>

namespace tavrel {

namespace {
constexpr std::uint32_t keyMask =
    XCB_INPUT_XI_EVENT_MASK_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_KEY_RELEASE;

enum class KeyboardKind { physical, ofPrograms };

// The server has a slave keyboard for XTest events, too, which no user can press.
bool isKeyboard(const xcb_input_xi_device_info_t& device, KeyboardKind kind) {
  const std::string_view name(
      xcb_input_xi_device_info_name(&device),
      static_cast<std::size_t>(xcb_input_xi_device_info_name_length(&device)));
  const bool isOfPrograms = name.find("XTEST") != std::string_view::npos;
  return device.type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD &&
         isOfPrograms == (kind == KeyboardKind::ofPrograms);
}

std::vector<std::uint16_t> keyboards(xcb_connection_t& connection, KeyboardKind kind) {
  std::vector<std::uint16_t> found;
  const auto devices = xcbReply(xcb_input_xi_query_device_reply(
      &connection, xcb_input_xi_query_device(&connection, XCB_INPUT_DEVICE_ALL), nullptr));
  if (!devices)
    return found;
  for (auto at = xcb_input_xi_query_device_infos_iterator(devices.get()); at.rem > 0;
       xcb_input_xi_device_info_next(&at))
    if (isKeyboard(*at.data, kind))
      found.push_back(at.data->deviceid);
  return found;
}

xcb_input_xi_grab_device_cookie_t requestGrab(xcb_connection_t& connection, std::uint16_t device) {
  return xcb_input_xi_grab_device(&connection, rootWindow(connection), XCB_CURRENT_TIME, XCB_NONE,
                                  device, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, 0, 1, &keyMask);
}

// The core event that the server would have sent without the grab.
std::optional<xcb_key_press_event_t> coreEventOf(const xcb_generic_event_t& event) {
  const auto& key = reinterpret_cast<const xcb_input_key_press_event_t&>(event);
  if ((event.response_type & 0x7F) != XCB_GE_GENERIC ||
      (key.event_type != XCB_INPUT_KEY_PRESS && key.event_type != XCB_INPUT_KEY_RELEASE))
    return std::nullopt;
  xcb_key_press_event_t core{};
  core.response_type = key.event_type == XCB_INPUT_KEY_PRESS ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
  core.detail = static_cast<xcb_keycode_t>(key.detail);
  core.time = key.time;
  core.root = key.root;
  core.event = key.root;
  core.state = static_cast<std::uint16_t>(key.mods.effective |
                                          static_cast<unsigned>(key.group.effective) << 13U);
  core.same_screen = 1;
  return core;
}
} // namespace

std::vector<std::uint16_t> physicalKeyboards(xcb_connection_t& connection) {
  return keyboards(connection, KeyboardKind::physical);
}

std::vector<std::uint16_t> programKeyboards(xcb_connection_t& connection) {
  return keyboards(connection, KeyboardKind::ofPrograms);
}

PhysicalKeyboards::PhysicalKeyboards(xcb_connection_t& connection)
    : connection_(connection), grabbed_(physicalKeyboards(connection)) {
  std::vector<xcb_input_xi_grab_device_cookie_t> requests;
  for (const std::uint16_t device : grabbed_)
    requests.push_back(requestGrab(connection, device));
  for (const auto cookie : requests)
    (void)xcbReply(xcb_input_xi_grab_device_reply(&connection, cookie, nullptr));
}

RecordedKeyEvents PhysicalKeyboards::take() {
  RecordedKeyEvents keys;
  while (const auto event = xcbReply(xcb_poll_for_event(&connection_)))
    if (const auto key = coreEventOf(*event))
      keys.push_back(*key);
  return keys;
}

void PhysicalKeyboards::release() {
  if (grabbed_.empty())
    return;
  for (const std::uint16_t device : std::exchange(grabbed_, {}))
    xcb_input_xi_ungrab_device(&connection_, XCB_CURRENT_TIME, device);
  (void)xcbReply(
      xcb_get_input_focus_reply(&connection_, xcb_get_input_focus(&connection_), nullptr));
}

} // namespace tavrel
