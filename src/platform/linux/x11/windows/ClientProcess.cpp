#include "platform/linux/x11/windows/ClientProcess.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <xcb/res.h>
#include <xcb/xcb.h>

namespace tavrel {

std::int32_t processOfClient(xcb_connection_t& server, std::uint32_t window) {
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(&server, &xcb_res_id);
  if (extension == nullptr || extension->present == 0) // else libxcb would close the connection
    return 0;
  const xcb_res_client_id_spec_t wanted{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
  const auto reply = xcbReply(xcb_res_query_client_ids_reply(
      &server, xcb_res_query_client_ids(&server, 1, &wanted), nullptr));
  if (!reply)
    return 0;
  for (auto at = xcb_res_query_client_ids_ids_iterator(reply.get()); at.rem > 0;
       xcb_res_client_id_value_next(&at))
    if ((at.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0 &&
        xcb_res_client_id_value_value_length(at.data) > 0)
      return static_cast<std::int32_t>(*xcb_res_client_id_value_value(at.data));
  return 0;
}

} // namespace tavrel
