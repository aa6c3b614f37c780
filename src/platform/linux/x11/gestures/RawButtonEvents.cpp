#include "platform/linux/x11/gestures/RawButtonEvents.h"

#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbReply.h"

#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace tavrel {

namespace {
bool speaksXInput2(xcb_connection_t& connection) {
  const auto version = xcbReply(xcb_input_xi_query_version_reply(
      &connection, xcb_input_xi_query_version(&connection, 2, 2), nullptr));
  return version && version->major_version >= 2;
}
} // namespace

std::uint8_t rawEventExtension(xcb_connection_t& connection) {
  const auto* extension = xcb_get_extension_data(&connection, &xcb_input_id);
  return extension != nullptr && extension->present != 0 && speaksXInput2(connection)
             ? extension->major_opcode
             : std::uint8_t{0};
}

bool selectRawButtons(xcb_connection_t& connection, RawMotion motion) {
  struct {
    xcb_input_event_mask_t header;
    std::uint32_t bits;
  } mask{};
  mask.header.deviceid = XCB_INPUT_DEVICE_ALL_MASTER;
  mask.header.mask_len = 1;
  mask.bits = XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;
  if (motion == RawMotion::told)
    mask.bits |= XCB_INPUT_XI_EVENT_MASK_RAW_MOTION;
  const auto cookie =
      xcb_input_xi_select_events_checked(&connection, rootWindow(connection), 1, &mask.header);
  return xcbReply(xcb_request_check(&connection, cookie)) == nullptr;
}

} // namespace tavrel
