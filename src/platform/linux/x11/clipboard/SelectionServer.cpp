#include "platform/linux/x11/clipboard/SelectionServer.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <array>
#include <cstring>
#include <utility>

namespace tavrel {

namespace {

constexpr auto dataTimeout = std::chrono::milliseconds(200);
constexpr std::uint32_t pairLimit = 8192;

ServedTarget numbers(const std::string& type, const std::vector<std::uint32_t>& values) {
  Bytes bytes(values.size() * sizeof(std::uint32_t));
  std::memcpy(bytes.data(), values.data(), bytes.size());
  return {type, 32, sharedBytes(std::move(bytes))};
}

// A request for MULTIPLE names a property that holds pairs of target and property.
std::vector<xcb_atom_t> pairsAt(xcb_connection_t* server, xcb_window_t window,
                                xcb_atom_t property) {
  const auto reply = xcbReply(xcb_get_property_reply(
      server,
      xcb_get_property(server, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, pairLimit),
      nullptr));
  if (!reply || reply->format != 32)
    return {};
  const auto* atoms = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
  return {atoms, atoms + std::size_t{reply->value_len} / 2 * 2};
}

} // namespace

void SelectionServer::serve(std::shared_ptr<const ClipboardContents> contents,
                            xcb_timestamp_t since) {
  contents_ = std::move(contents);
  since_ = since;
  dataDeadline_ = std::chrono::steady_clock::now() + dataTimeout;
  answerPending();
}

void SelectionServer::dataWasSet() {
  if (!pendingRequests_.empty() && !awaitsData(*contents_))
    answerPending();
}

void SelectionServer::doDueWork() {
  sends_.dropIdle();
  if (std::chrono::steady_clock::now() >= dataDeadline_)
    answerPending();
}

void SelectionServer::answerPending() {
  for (const Request& request : std::exchange(pendingRequests_, {}))
    answer(request);
}

void SelectionServer::handle(const xcb_generic_event_t& event) {
  if (kindOf(event) == XCB_SELECTION_REQUEST) {
    answer(reinterpret_cast<const Request&>(event));
  } else if (kindOf(event) == XCB_PROPERTY_NOTIFY) {
    const auto& notice = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (notice.state == XCB_PROPERTY_DELETE)
      sends_.propertyDeleted(notice.window, notice.atom);
  } else if (kindOf(event) == XCB_DESTROY_NOTIFY) {
    sends_.requestorGone(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
  }
}

void SelectionServer::answer(const Request& request) {
  if (!contents_ || request.selection != connection_.atom("CLIPBOARD"))
    return notify(request, XCB_ATOM_NONE);
  if (awaitsData(*contents_) && std::chrono::steady_clock::now() < dataDeadline_)
    return pendingRequests_.push_back(request);
  // Programs that follow a convention older than ICCCM name no property: the target's name is
  // meant.
  const xcb_atom_t property = request.property == XCB_ATOM_NONE ? request.target : request.property;
  const bool isMany = request.target == connection_.atom("MULTIPLE");
  const bool done = isMany ? convertMany(request, property)
                           : convert(request.requestor, request.target, property);
  notify(request, done ? property : xcb_atom_t{XCB_ATOM_NONE});
}

bool SelectionServer::convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property) {
  const std::string name = connection_.names({target}).front();
  std::optional<ServedTarget> data;
  if (name == "TARGETS")
    data = targetList();
  else if (name == "TIMESTAMP")
    data = numbers("INTEGER", {since_});
  else if ((data = servedTarget(*contents_, name)))
    lastReader_ = requestor;
  if (!data)
    return false;
  sends_.send(requestor, property, *data);
  return true;
}

bool SelectionServer::convertMany(const Request& request, xcb_atom_t property) {
  std::vector<xcb_atom_t> pairs = pairsAt(connection_.server(), request.requestor, property);
  if (request.property == XCB_ATOM_NONE || pairs.empty())
    return false;
  for (std::size_t i = 0; i < pairs.size(); i += 2)
    if (pairs[i] == request.target || !convert(request.requestor, pairs[i], pairs[i + 1]))
      pairs[i + 1] = XCB_ATOM_NONE;
  xcb_change_property(connection_.server(), XCB_PROP_MODE_REPLACE, request.requestor, property,
                      connection_.atom("ATOM_PAIR"), 32, static_cast<std::uint32_t>(pairs.size()),
                      pairs.data());
  return true;
}

ServedTarget SelectionServer::targetList() {
  std::vector<std::string> names{"TARGETS", "TIMESTAMP", "MULTIPLE"};
  const std::vector<std::string> served = servedTargets(*contents_);
  names.insert(names.end(), served.begin(), served.end());
  return numbers("ATOM", connection_.atoms(names));
}

void SelectionServer::notify(const Request& request, xcb_atom_t property) {
  xcb_selection_notify_event_t notice{};
  notice.response_type = XCB_SELECTION_NOTIFY;
  notice.time = request.time;
  notice.requestor = request.requestor;
  notice.selection = request.selection;
  notice.target = request.target;
  notice.property = property;
  // xcb sends 32 bytes of any event; this struct is shorter.
  std::array<char, 32> bytes{};
  std::memcpy(bytes.data(), &notice, sizeof notice);
  xcb_send_event(connection_.server(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, bytes.data());
}

} // namespace tavrel
