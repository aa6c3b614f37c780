#include "platform/linux/x11/clipboard/IncrementalSends.h"

#include <algorithm>

namespace tavrel {

namespace {
constexpr auto idleTimeout = std::chrono::seconds(5);
constexpr std::size_t preferredPiece = 262'144;

void watch(SelectionConnection& connection, xcb_window_t window, std::uint32_t events) {
  if (window != connection.window())
    xcb_change_window_attributes(connection.server(), window, XCB_CW_EVENT_MASK, &events);
}
} // namespace

IncrementalSends::IncrementalSends(SelectionConnection& connection)
    : connection_(connection),
      largestPiece_(std::min<std::size_t>(
          preferredPiece,
          xcb_get_maximum_request_length(connection.server()) * std::size_t{4} - 64)) {}

void IncrementalSends::send(xcb_window_t requestor, xcb_atom_t property,
                            const ServedTarget& target) {
  Send send{requestor,    property, connection_.atom(target.type),   target.format,
            target.bytes, 0,        std::chrono::steady_clock::now()};
  if (send.bytes->size() > largestPiece_)
    begin(std::move(send));
  else
    put(send, 0, send.bytes->size());
}

void IncrementalSends::begin(Send send) {
  std::erase_if(sends_, [&](const Send& each) {
    return each.requestor == send.requestor && each.property == send.property;
  });
  watch(connection_, send.requestor,
        XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  const auto size = static_cast<std::uint32_t>(send.bytes->size());
  xcb_change_property(connection_.server(), XCB_PROP_MODE_REPLACE, send.requestor, send.property,
                      connection_.atom("INCR"), 32, 1, &size);
  sends_.push_back(std::move(send));
}

void IncrementalSends::put(const Send& send, std::size_t from, std::size_t size) {
  const std::size_t units = size / (send.format / 8U);
  xcb_change_property(connection_.server(), XCB_PROP_MODE_REPLACE, send.requestor, send.property,
                      send.type, send.format, static_cast<std::uint32_t>(units),
                      send.bytes->data() + from);
}

void IncrementalSends::propertyDeleted(xcb_window_t requestor, xcb_atom_t property) {
  const auto found = std::find_if(sends_.begin(), sends_.end(), [&](const Send& each) {
    return each.requestor == requestor && each.property == property;
  });
  if (found == sends_.end() || sendPiece(*found))
    return;
  sends_.erase(found);
  stopWatching(requestor);
}

// Whether more is to follow. The last piece is empty.
bool IncrementalSends::sendPiece(Send& send) {
  const std::size_t size = std::min(send.bytes->size() - send.offset, largestPiece_ & ~3U);
  put(send, send.offset, size);
  send.offset += size;
  send.lastProgress = std::chrono::steady_clock::now();
  return size > 0;
}

void IncrementalSends::requestorGone(xcb_window_t requestor) {
  std::erase_if(sends_, [&](const Send& each) { return each.requestor == requestor; });
}

void IncrementalSends::dropIdle() {
  const auto oldest = std::chrono::steady_clock::now() - idleTimeout;
  std::erase_if(sends_, [&](const Send& each) { return each.lastProgress < oldest; });
}

void IncrementalSends::stopWatching(xcb_window_t requestor) {
  if (std::none_of(sends_.begin(), sends_.end(),
                   [&](const Send& each) { return each.requestor == requestor; }))
    watch(connection_, requestor, XCB_EVENT_MASK_NO_EVENT);
}

} // namespace tavrel
