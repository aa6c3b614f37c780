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

// Raw events of keys and of buttons are laid out alike.
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

constexpr std::uint32_t buttonEvents =
    XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;
constexpr std::uint32_t keyEvents =
    XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;

bool speaksXInput2(xcb_connection_t& connection) {
  const auto version = xcbReply(xcb_input_xi_query_version_reply(
      &connection, xcb_input_xi_query_version(&connection, 2, 2), nullptr));
  return version && version->major_version >= 2;
}

bool selectRawEvents(xcb_connection_t& connection, std::uint32_t events) {
  const struct {
    xcb_input_event_mask_t header{XCB_INPUT_DEVICE_ALL_MASTER, 1};
    std::uint32_t bits;
  } mask{.bits = events};
  const auto cookie =
      xcb_input_xi_select_events_checked(&connection, rootWindow(connection), 1, &mask.header);
  return xcbReply(xcb_request_check(&connection, cookie)) == nullptr;
}

} // namespace

// From version 2.1 on, the server reports raw events also while another program has a grab.
std::uint8_t rawEventExtension(xcb_connection_t& connection) {
  const auto* extension = xcb_get_extension_data(&connection, &xcb_input_id);
  return extension != nullptr && extension->present != 0 && speaksXInput2(connection)
             ? extension->major_opcode
             : std::uint8_t{0};
}

bool selectRawButtons(xcb_connection_t& connection, RawMotion motion) {
  std::uint32_t events = buttonEvents;
  if (motion == RawMotion::reported)
    events |= XCB_INPUT_XI_EVENT_MASK_RAW_MOTION;
  return selectRawEvents(connection, events);
}

std::unique_ptr<RawInput> RawInput::create() {
  std::unique_ptr<RawInput> input(new RawInput(xcb_connect(nullptr, nullptr)));
  if (input->hasFailed())
    return nullptr;
  input->extension_ = rawEventExtension(*input->connection_);
  const bool isSelected =
      input->extension_ != 0 && selectRawEvents(*input->connection_, keyEvents | buttonEvents);
  return isSelected ? std::move(input) : nullptr;
}

RawInput::~RawInput() {
  xcb_disconnect(connection_);
}

std::optional<RawInputEvent> RawInput::next() {
  while (const auto event = xcbReply(xcb_poll_for_event(connection_)))
    if (const auto input = inputOf(*event, extension_))
      return input;
  return std::nullopt;
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
