#include "platform/linux/x11/clipboard/LateCopies.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <xcb/xinput.h>

namespace tavrel {

namespace {

constexpr auto lateCopyTimeout = std::chrono::seconds(3);
constexpr int lateCopyLimit = 20; // more often no program answers one keystroke
constexpr std::uint32_t firstWheelButton = 4;
constexpr std::uint32_t lastWheelButton = 7;

struct PressMask {
  xcb_input_event_mask_t head;
  std::uint32_t events;
};

} // namespace

LateCopies::LateCopies(SelectionConnection& connection, xcb_window_t ownWindows)
    : connection_(connection), ownWindows_(ownWindows) {
  xcb_connection_t* server = connection_.server();
  const xcb_query_extension_reply_t* input = xcb_get_extension_data(server, &xcb_input_id);
  if (!input || input->present == 0)
    return;
  inputExtension_ = input->major_opcode;
  xcbReply(
      xcb_input_xi_query_version_reply(server, xcb_input_xi_query_version(server, 2, 2), nullptr));
}

// Without XInput the user's copies could not be told from late ones: then none counts as late.
void LateCopies::expect(const CopySource& source) {
  stop();
  if (inputExtension_ == 0)
    return;
  // First: once the server has replied to the requests after it, no press is missed any more.
  selectPresses(XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS);
  connection_.watchRoot(SelectionConnection::RootWatch::begins);
  findModifiers();
  findMenus();
  source_ = source;
  remaining_ = lateCopyLimit;
  isExpecting_ = true;
  prolong();
}

void LateCopies::prolong() {
  deadline_ = std::chrono::steady_clock::now() + lateCopyTimeout;
}

void LateCopies::stop() {
  if (!std::exchange(isExpecting_, false))
    return;
  selectPresses(0);
  connection_.watchRoot(SelectionConnection::RootWatch::ends);
}

void LateCopies::stopAfterTimeout() {
  if (isExpecting_ && std::chrono::steady_clock::now() >= deadline_)
    stop();
}

void LateCopies::handle(const xcb_generic_event_t& event) {
  if (!isExpecting_)
    return;
  followMenus(event);
  if (isPress(event) && menus_.empty())
    stop();
}

bool LateCopies::isLate(xcb_window_t owner) {
  return isExpecting_ && source_->made(owner) && remaining_-- > 0;
}

// What another program owned it may have cleared itself, as password managers do.
bool LateCopies::isLateClear(xcb_window_t ownerBefore) {
  return isLate(isExpecting_ && ownerBefore == connection_.window() ? source_->window()
                                                                    : ownerBefore);
}

bool LateCopies::isPress(const xcb_generic_event_t& event) const {
  const auto& press = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
  if (kindOf(event) != XCB_GE_GENERIC || press.extension != inputExtension_)
    return false;
  if (press.event_type == XCB_INPUT_RAW_BUTTON_PRESS)
    return press.detail < firstWheelButton || press.detail > lastWheelButton;
  return press.event_type == XCB_INPUT_RAW_KEY_PRESS &&
         (press.flags & XCB_INPUT_KEY_EVENT_FLAGS_KEY_REPEAT) == 0 &&
         std::find(modifiers_.begin(), modifiers_.end(), press.detail) == modifiers_.end();
}

void LateCopies::selectPresses(std::uint32_t events) {
  const PressMask mask{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, events};
  xcb_input_xi_select_events(connection_.server(), connection_.root(), 1, &mask.head);
  xcb_flush(connection_.server());
}

void LateCopies::findModifiers() {
  modifiers_.clear();
  const auto reply = xcbReply(xcb_get_modifier_mapping_reply(
      connection_.server(), xcb_get_modifier_mapping(connection_.server()), nullptr));
  if (!reply)
    return;
  const xcb_keycode_t* keys = xcb_get_modifier_mapping_keycodes(reply.get());
  modifiers_.assign(keys, keys + xcb_get_modifier_mapping_keycodes_length(reply.get()));
}

void LateCopies::findMenus() {
  menus_.clear();
  xcb_connection_t* server = connection_.server();
  const auto tree =
      xcbReply(xcb_query_tree_reply(server, xcb_query_tree(server, connection_.root()), nullptr));
  if (!tree || ownWindows_ == XCB_WINDOW_NONE)
    return;
  const xcb_window_t* windows = xcb_query_tree_children(tree.get());
  std::copy_if(windows, windows + tree->children_len, std::inserter(menus_, menus_.end()),
               [&](xcb_window_t window) { return isOpenMenu(window); });
}

bool LateCopies::isOpenMenu(xcb_window_t window) {
  xcb_connection_t* server = connection_.server();
  if (!connection_.areOfOneClient(window, ownWindows_))
    return false;
  const auto attributes = xcbReply(
      xcb_get_window_attributes_reply(server, xcb_get_window_attributes(server, window), nullptr));
  return attributes && attributes->override_redirect != 0 &&
         attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

// By events, for they come in order with the presses: a press that closes a menu is the menu's.
void LateCopies::followMenus(const xcb_generic_event_t& event) {
  const auto& mapped = reinterpret_cast<const xcb_map_notify_event_t&>(event);
  if (kindOf(event) == XCB_MAP_NOTIFY && mapped.override_redirect != 0 &&
      ownWindows_ != XCB_WINDOW_NONE && connection_.areOfOneClient(mapped.window, ownWindows_))
    menus_.insert(mapped.window);
  if (kindOf(event) == XCB_UNMAP_NOTIFY)
    menus_.erase(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window);
}

} // namespace tavrel
