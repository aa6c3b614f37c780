#include "platform/linux/x11/gestures/RawInput.h"

#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbReply.h"

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <string_view>

namespace tavrel {

namespace {

std::optional<RawInputKind> kindOf(std::uint16_t type) {
  switch (type) {
  case XCB_INPUT_RAW_KEY_PRESS:
    return RawInputKind::keyDown;
  case XCB_INPUT_RAW_KEY_RELEASE:
    return RawInputKind::keyUp;
  case XCB_INPUT_RAW_BUTTON_PRESS:
    return RawInputKind::buttonDown;
  case XCB_INPUT_RAW_BUTTON_RELEASE:
    return RawInputKind::buttonUp;
  default:
    return std::nullopt;
  }
}

// Keys and buttons share one shape of event.
std::optional<RawInputEvent> inputOf(const xcb_generic_event_t& event, std::uint8_t extension) {
  if ((event.response_type & 0x7F) == XCB_MAPPING_NOTIFY)
    return RawInputEvent{RawInputKind::mappingChanged};
  const auto& raw = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
  if ((event.response_type & 0x7F) != XCB_GE_GENERIC || raw.extension != extension)
    return std::nullopt;
  const auto kind = kindOf(raw.event_type);
  return kind ? std::optional(RawInputEvent{*kind, raw.detail, raw.sourceid, raw.time})
              : std::nullopt;
}

struct RawMask {
  xcb_input_event_mask_t header{XCB_INPUT_DEVICE_ALL_MASTER, 1};
  std::uint32_t bits =
      XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE |
      XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;
};

} // namespace

std::unique_ptr<RawInput> RawInput::create() {
  std::unique_ptr<RawInput> input(new RawInput(xcb_connect(nullptr, nullptr)));
  return !input->hasFailed() && input->select() ? std::move(input) : nullptr;
}

RawInput::~RawInput() {
  xcb_disconnect(connection_);
}

// From version 2.1 on, the server also tells of what another program has grabbed.
bool RawInput::select() {
  const auto* extension = xcb_get_extension_data(connection_, &xcb_input_id);
  if (!extension || extension->present == 0)
    return false;
  extension_ = extension->major_opcode;
  const auto version = xcbReply(xcb_input_xi_query_version_reply(
      connection_, xcb_input_xi_query_version(connection_, 2, 2), nullptr));
  if (!version || version->major_version < 2)
    return false;
  const RawMask mask;
  const auto asked =
      xcb_input_xi_select_events_checked(connection_, rootWindow(*connection_), 1, &mask.header);
  return !xcbReply(xcb_request_check(connection_, asked));
}

std::optional<RawInputEvent> RawInput::next() {
  while (const auto event = xcbReply(xcb_poll_for_event(connection_)))
    if (const auto input = inputOf(*event, extension_))
      return input;
  return std::nullopt;
}

void RawInput::waitUntilUpToDate() {
  xcbReply(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

bool RawInput::hasFailed() const {
  return xcb_connection_has_error(connection_) != 0;
}

std::set<std::uint16_t> RawInput::programDevices() {
  std::set<std::uint16_t> devices;
  const auto reply = xcbReply(xcb_input_xi_query_device_reply(
      connection_, xcb_input_xi_query_device(connection_, XCB_INPUT_DEVICE_ALL), nullptr));
  if (!reply)
    return devices;
  for (auto each = xcb_input_xi_query_device_infos_iterator(reply.get()); each.rem > 0;
       xcb_input_xi_device_info_next(&each)) {
    const std::string_view name(
        xcb_input_xi_device_info_name(each.data),
        static_cast<std::size_t>(xcb_input_xi_device_info_name_length(each.data)));
    if (name.find("XTEST") != std::string_view::npos)
      devices.insert(each.data->deviceid);
  }
  return devices;
}

} // namespace tavrel
