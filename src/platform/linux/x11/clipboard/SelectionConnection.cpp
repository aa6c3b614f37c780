#include "platform/linux/x11/clipboard/SelectionConnection.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <algorithm>
#include <array>
#include <poll.h>
#include <xcb/xfixes.h>

namespace tavrel {

namespace {

constexpr auto timeStampTimeout = std::chrono::seconds(1);

int millisecondsUntil(SelectionTime deadline) {
  const auto left =
      std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
  return static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, 3'600'000));
}

const xcb_screen_t* screenAt(xcb_connection_t* server, int number) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(server));
  while (number-- > 0 && screens.rem > 1)
    xcb_screen_next(&screens);
  return screens.data;
}

} // namespace

std::unique_ptr<SelectionConnection> SelectionConnection::create() {
  int screen = 0;
  xcb_connection_t* server = xcb_connect(nullptr, &screen);
  if (xcb_connection_has_error(server) != 0) {
    xcb_disconnect(server);
    return nullptr;
  }
  std::unique_ptr<SelectionConnection> connection(new SelectionConnection(server, screen));
  return connection->selectOwnerEvents() ? std::move(connection) : nullptr;
}

SelectionConnection::SelectionConnection(xcb_connection_t* server, int screen)
    : server_(server), root_(screenAt(server, screen)->root), window_(xcb_generate_id(server)) {
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(server_, 0, window_, root_, -10, -10, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0,
                    XCB_CW_EVENT_MASK, &events);
}

SelectionConnection::~SelectionConnection() {
  xcb_disconnect(server_);
}

bool SelectionConnection::selectOwnerEvents() {
  const xcb_query_extension_reply_t* fixes = xcb_get_extension_data(server_, &xcb_xfixes_id);
  if (!fixes || fixes->present == 0)
    return false;
  ownerEvent_ = static_cast<std::uint8_t>(fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
  xcbReply(
      xcb_xfixes_query_version_reply(server_, xcb_xfixes_query_version(server_, 1, 0), nullptr));
  xcb_xfixes_select_selection_input(server_, window_, atom("CLIPBOARD"),
                                    XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
  return true;
}

bool SelectionConnection::areOfOneClient(xcb_window_t a, xcb_window_t b) const {
  const std::uint32_t resource = xcb_get_setup(server_)->resource_id_mask;
  return (a & ~resource) == (b & ~resource);
}

xcb_window_t SelectionConnection::ownerOf(const std::string& selection) {
  const auto reply = xcbReply(xcb_get_selection_owner_reply(
      server_, xcb_get_selection_owner(server_, atom(selection)), nullptr));
  return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

xcb_atom_t SelectionConnection::atom(const std::string& name) {
  return atoms({name}).front();
}

std::vector<xcb_atom_t> SelectionConnection::atoms(const std::vector<std::string>& names) {
  std::vector<std::pair<std::string, xcb_intern_atom_cookie_t>> requests;
  for (const std::string& name : names)
    if (!atoms_.contains(name))
      requests.emplace_back(
          name, xcb_intern_atom(server_, 0, static_cast<std::uint16_t>(name.size()), name.c_str()));
  for (const auto& [name, cookie] : requests)
    if (const auto reply = xcbReply(xcb_intern_atom_reply(server_, cookie, nullptr)))
      atoms_[name] = reply->atom;
  std::vector<xcb_atom_t> found;
  for (const std::string& name : names)
    found.push_back(atoms_[name]);
  return found;
}

std::vector<std::string> SelectionConnection::names(const std::vector<xcb_atom_t>& atoms) {
  std::vector<std::pair<xcb_atom_t, xcb_get_atom_name_cookie_t>> requests;
  for (const xcb_atom_t atom : atoms)
    if (!names_.contains(atom))
      requests.emplace_back(atom, xcb_get_atom_name(server_, atom));
  for (const auto& [atom, cookie] : requests)
    if (const auto reply = xcbReply(xcb_get_atom_name_reply(server_, cookie, nullptr)))
      names_[atom] = {xcb_get_atom_name_name(reply.get()),
                      static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()))};
  std::vector<std::string> found;
  for (const xcb_atom_t atom : atoms)
    found.push_back(names_[atom]);
  return found;
}

void SelectionConnection::watchRoot(RootWatch watch) {
  rootWatches_ += watch == RootWatch::begins ? 1 : -1;
  const std::uint32_t events =
      rootWatches_ == 0 ? XCB_EVENT_MASK_NO_EVENT
                        : XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_change_window_attributes(server_, root_, XCB_CW_EVENT_MASK, &events);
  xcb_flush(server_);
}

void SelectionConnection::drain() {
  while (const SelectionEvent event{xcb_poll_for_event(server_)})
    handler_(*event);
}

void SelectionConnection::wait(const EventFilter& isAwaited, const std::function<bool()>& isOver,
                               SelectionTime deadline) {
  while (!isBroken() && !isOver()) {
    if (const SelectionEvent event{xcb_poll_for_event(server_)}) {
      if (!isAwaited(*event))
        handler_(*event);
    } else if (std::chrono::steady_clock::now() >= deadline) {
      return;
    } else {
      sleep(-1, deadline);
    }
  }
}

void SelectionConnection::sleep(int wakeUp, SelectionTime deadline) {
  xcb_flush(server_);
  std::array<pollfd, 2> sources{
      pollfd{isBroken() ? -1 : xcb_get_file_descriptor(server_), POLLIN, 0},
      pollfd{wakeUp, POLLIN, 0}};
  ::poll(sources.data(), sources.size(), millisecondsUntil(deadline));
}

xcb_timestamp_t SelectionConnection::now() {
  const xcb_atom_t property = atom("TAVREL_TIME");
  xcb_change_property(server_, XCB_PROP_MODE_APPEND, window_, property, XCB_ATOM_INTEGER, 32, 0,
                      nullptr);
  xcb_timestamp_t time = 0;
  const auto isNotice = [&](const xcb_generic_event_t& event) {
    const auto& notice = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (kindOf(event) != XCB_PROPERTY_NOTIFY || notice.atom != property)
      return false;
    time = notice.time;
    return true;
  };
  const auto isTold = [&] { return time != 0; };
  wait(isNotice, isTold, std::chrono::steady_clock::now() + timeStampTimeout);
  return time;
}

} // namespace tavrel
