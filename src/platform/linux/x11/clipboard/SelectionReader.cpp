#include "platform/linux/x11/clipboard/SelectionReader.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr auto answerTimeout = std::chrono::milliseconds(300);
constexpr auto pieceTimeout = std::chrono::milliseconds(600);

// Each megabyte read adds 20 ms to the time of the budget.
constexpr std::size_t bytesPerMicrosecond = 50;

// Requests take turns over this many properties, so that a late answer does not mix with a later
// one.
constexpr int propertyCount = 64;

SelectionTime deadlineAfter(const ReadBudget& budget, std::chrono::milliseconds longest) {
  return std::min(budget.end, std::chrono::steady_clock::now() + longest);
}

bool isNewValue(const xcb_generic_event_t& event, xcb_window_t window, xcb_atom_t property) {
  const auto& notice = reinterpret_cast<const xcb_property_notify_event_t&>(event);
  return kindOf(event) == XCB_PROPERTY_NOTIFY && notice.window == window &&
         notice.atom == property && notice.state == XCB_PROPERTY_NEW_VALUE;
}

} // namespace

SelectionReader::SelectionReader(SelectionConnection& connection, const std::string& selection,
                                 std::function<bool()> isInterrupted)
    : connection_(connection), selection_(connection.atom(selection)),
      isInterrupted_(std::move(isInterrupted)) {
  std::vector<std::string> names;
  for (int i = 0; i < propertyCount; ++i)
    names.push_back("TAVREL_" + selection + "_" + std::to_string(i));
  properties_ = connection_.atoms(names);
}

void SelectionReader::discardLate(const xcb_property_notify_event_t& notice) {
  if (notice.window != connection_.window() || notice.state != XCB_PROPERTY_NEW_VALUE ||
      notice.atom == awaitedProperty_ ||
      std::find(properties_.begin(), properties_.end(), notice.atom) == properties_.end())
    return;
  xcb_delete_property(connection_.server(), notice.window, notice.atom);
}

TargetReading SelectionReader::read(xcb_atom_t target, ReadBudget& budget) {
  TargetReading reading;
  awaitedProperty_ = properties_[next_++ % properties_.size()];
  const auto answer = requestTarget(target, budget);
  if (isInterrupted_())
    reading.end = TransferEnd::interrupted;
  else if (answer)
    reading.end = *answer == XCB_ATOM_NONE ? TransferEnd::refused : readProperty(reading, budget);
  if (reading.end == TransferEnd::done && reading.type == connection_.atom("INCR"))
    reading.end = readPieces(reading, budget);
  awaitedProperty_ = XCB_ATOM_NONE;
  return reading;
}

std::optional<xcb_atom_t> SelectionReader::requestTarget(xcb_atom_t target,
                                                         const ReadBudget& budget) {
  xcb_connection_t* server = connection_.server();
  const xcb_window_t window = connection_.window();
  xcb_delete_property(server, window, awaitedProperty_);
  xcb_convert_selection(server, window, selection_, target, awaitedProperty_, connection_.now());
  std::optional<xcb_atom_t> answer;
  const auto isAnswer = [&](const xcb_generic_event_t& event) {
    const auto& notice = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
    if (kindOf(event) != XCB_SELECTION_NOTIFY || notice.requestor != window ||
        notice.selection != selection_ || notice.target != target ||
        (notice.property != awaitedProperty_ && notice.property != XCB_ATOM_NONE))
      return isNewValue(event, window, awaitedProperty_);
    answer = notice.property;
    return true;
  };
  connection_.wait(
      isAnswer, [&] { return answer || isInterrupted_(); }, deadlineAfter(budget, answerTimeout));
  return answer;
}

// Appends the value of the property, and deletes it.
TransferEnd SelectionReader::readProperty(TargetReading& reading, ReadBudget& budget) {
  xcb_connection_t* server = connection_.server();
  const auto most = static_cast<std::uint32_t>(budget.bytes / 4 + 1);
  const auto reply = xcbReply(
      xcb_get_property_reply(server,
                             xcb_get_property(server, 1, connection_.window(), awaitedProperty_,
                                              XCB_GET_PROPERTY_TYPE_ANY, 0, most),
                             nullptr));
  if (!reply)
    return TransferEnd::refused;
  const auto size = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
  if (reply->bytes_after > 0 || size > budget.bytes) {
    xcb_delete_property(server, connection_.window(), awaitedProperty_);
    return TransferEnd::tooMuch;
  }
  budget.bytes -= size;
  budget.end += std::chrono::microseconds(size / bytesPerMicrosecond);
  const auto* bytes = static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get()));
  reading.bytes.insert(reading.bytes.end(), bytes, bytes + size);
  reading.type = reply->type;
  reading.format = reply->format;
  return reply->type == XCB_ATOM_NONE ? TransferEnd::refused : TransferEnd::done;
}

// The announced length is a hint that programs do not keep to. An empty piece is the end; some
// programs give it another type, so that of the pieces before counts.
TransferEnd SelectionReader::readPieces(TargetReading& reading, ReadBudget& budget) {
  reading.bytes.clear();
  for (;;) {
    if (!waitForPiece(budget))
      return isInterrupted_() ? TransferEnd::interrupted : TransferEnd::timedOut;
    const TargetReading before{TransferEnd::done, reading.type, reading.format, {}};
    const std::size_t size = reading.bytes.size();
    const TransferEnd end = readProperty(reading, budget);
    if (end == TransferEnd::done && reading.bytes.size() > size)
      continue;
    if (size > 0) {
      reading.type = before.type;
      reading.format = before.format;
    }
    return end;
  }
}

bool SelectionReader::waitForPiece(const ReadBudget& budget) {
  bool came = false;
  connection_.wait(
      [&](const xcb_generic_event_t& event) {
        const bool isPiece = isNewValue(event, connection_.window(), awaitedProperty_);
        came = came || isPiece;
        return isPiece;
      },
      [&] { return came || isInterrupted_(); }, deadlineAfter(budget, pieceTimeout));
  return came && !isInterrupted_();
}

} // namespace tavrel
