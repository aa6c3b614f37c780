#include "platform/linux/x11/clipboard/ClipboardManager.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <optional>

namespace tavrel {

namespace {

constexpr auto managerTimeout = std::chrono::seconds(3);
constexpr auto managerTotalTimeout = std::chrono::seconds(10);
constexpr auto managerPollInterval = std::chrono::milliseconds(50);

void requestSaving(SelectionConnection& connection, const std::vector<std::string>& targets) {
  const std::vector<xcb_atom_t> atoms = connection.atoms(targets);
  const xcb_atom_t property = connection.atom("TAVREL_SAVE_TARGETS");
  xcb_change_property(connection.server(), XCB_PROP_MODE_REPLACE, connection.window(), property,
                      XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(atoms.size()), atoms.data());
  xcb_convert_selection(connection.server(), connection.window(),
                        connection.atom("CLIPBOARD_MANAGER"), connection.atom("SAVE_TARGETS"),
                        property, connection.now());
}

bool hasManager(SelectionConnection& connection) {
  xcb_connection_t* server = connection.server();
  const auto reply = xcbReply(xcb_get_selection_owner_reply(
      server, xcb_get_selection_owner(server, connection.atom("CLIPBOARD_MANAGER")), nullptr));
  return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace

bool saveToClipboardManager(SelectionConnection& connection,
                            const std::vector<std::string>& targets,
                            const std::function<bool()>& isBeingRead) {
  if (!hasManager(connection))
    return false;
  requestSaving(connection, targets);
  std::optional<xcb_atom_t> answer;
  const auto isAnswered = [&] { return answer.has_value(); };
  const auto isAnswer = [&](const xcb_generic_event_t& event) {
    const auto& notice = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
    if (kindOf(event) != XCB_SELECTION_NOTIFY ||
        notice.selection != connection.atom("CLIPBOARD_MANAGER"))
      return false;
    answer = notice.property;
    return true;
  };
  const auto start = std::chrono::steady_clock::now();
  auto now = start;
  for (auto lastRead = start; !answer && now < lastRead + managerTimeout &&
                              now < start + managerTotalTimeout && !connection.isBroken();
       now = std::chrono::steady_clock::now()) {
    if (isBeingRead())
      lastRead = now;
    connection.wait(isAnswer, isAnswered, now + managerPollInterval);
  }
  return answer.value_or(XCB_ATOM_NONE) != XCB_ATOM_NONE;
}

} // namespace tavrel
