#include "platform/linux/x11/clipboard/SelectionReader.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr auto longestSilence = std::chrono::milliseconds(300);
constexpr auto longestSilenceBetweenPieces = std::chrono::milliseconds(600);

// Large contents may take their time, at no less than 50 MB a second.
constexpr std::size_t bytesPerMicrosecond = 50;

// Each transfer has a property of its own for a while, so that a late answer spoils no later one.
constexpr int readingProperties = 64;

SelectionTime silenceEnds(const SaveBudget& budget, std::chrono::milliseconds longest) {
  return std::min(budget.end, std::chrono::steady_clock::now() + longest);
}

bool isNewValue(const xcb_generic_event_t& event, xcb_window_t window, xcb_atom_t property) {
  const auto& notice = reinterpret_cast<const xcb_property_notify_event_t&>(event);
  return kindOf(event) == XCB_PROPERTY_NOTIFY && notice.window == window &&
         notice.atom == property && notice.state == XCB_PROPERTY_NEW_VALUE;
}

} // namespace

SelectionReader::SelectionReader(SelectionConnection& connection,
                                 std::function<bool()> isInterrupted)
    : connection_(connection), isInterrupted_(std::move(isInterrupted)) {
  std::vector<std::string> names;
  for (int i = 0; i < readingProperties; ++i)
    names.push_back("TAVREL_SELECTION_" + std::to_string(i));
  properties_ = connection_.atoms(names);
}

void SelectionReader::discard(const xcb_property_notify_event_t& notice) {
  if (notice.window != connection_.window() || notice.state != XCB_PROPERTY_NEW_VALUE ||
      notice.atom == awaited_ ||
      std::find(properties_.begin(), properties_.end(), notice.atom) == properties_.end())
    return;
  xcb_delete_property(connection_.server(), notice.window, notice.atom);
}

TargetReading SelectionReader::read(xcb_atom_t target, SaveBudget& budget) {
  TargetReading transfer;
  awaited_ = properties_[next_++ % properties_.size()];
  const auto answer = ask(target, budget);
  if (isInterrupted_())
    transfer.end = TransferEnd::interrupted;
  else if (answer)
    transfer.end = *answer == XCB_ATOM_NONE ? TransferEnd::refused : take(transfer, budget);
  if (transfer.end == TransferEnd::done && transfer.type == connection_.atom("INCR"))
    transfer.end = takePieces(transfer, budget);
  awaited_ = XCB_ATOM_NONE;
  return transfer;
}

std::optional<xcb_atom_t> SelectionReader::ask(xcb_atom_t target, const SaveBudget& budget) {
  xcb_connection_t* server = connection_.server();
  const xcb_window_t window = connection_.window();
  const xcb_atom_t clipboard = connection_.atom("CLIPBOARD");
  xcb_delete_property(server, window, awaited_);
  xcb_convert_selection(server, window, clipboard, target, awaited_, connection_.now());
  std::optional<xcb_atom_t> answer;
  const auto isAnswer = [&](const xcb_generic_event_t& event) {
    const auto& notice = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
    if (kindOf(event) != XCB_SELECTION_NOTIFY || notice.requestor != window ||
        notice.selection != clipboard || notice.target != target ||
        (notice.property != awaited_ && notice.property != XCB_ATOM_NONE))
      return isNewValue(event, window, awaited_);
    answer = notice.property;
    return true;
  };
  connection_.wait(
      isAnswer, [&] { return answer || isInterrupted_(); }, silenceEnds(budget, longestSilence));
  return answer;
}

// Appends what the property holds, and deletes it.
TransferEnd SelectionReader::take(TargetReading& transfer, SaveBudget& budget) {
  xcb_connection_t* server = connection_.server();
  const auto most = static_cast<std::uint32_t>(budget.bytes / 4 + 1);
  const auto reply =
      xcbReply(xcb_get_property_reply(server,
                                      xcb_get_property(server, 1, connection_.window(), awaited_,
                                                       XCB_GET_PROPERTY_TYPE_ANY, 0, most),
                                      nullptr));
  if (!reply)
    return TransferEnd::refused;
  const auto size = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
  if (reply->bytes_after > 0 || size > budget.bytes) {
    xcb_delete_property(server, connection_.window(), awaited_);
    return TransferEnd::tooMuch;
  }
  budget.bytes -= size;
  budget.end += std::chrono::microseconds(size / bytesPerMicrosecond);
  const auto* bytes = static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get()));
  transfer.bytes.insert(transfer.bytes.end(), bytes, bytes + size);
  transfer.type = reply->type;
  transfer.format = reply->format;
  return reply->type == XCB_ATOM_NONE ? TransferEnd::refused : TransferEnd::done;
}

// The announced length is a hint that nobody keeps; an empty piece is the end, whatever type it
// has.
TransferEnd SelectionReader::takePieces(TargetReading& transfer, SaveBudget& budget) {
  transfer.bytes.clear();
  for (;;) {
    if (!awaitPiece(budget))
      return isInterrupted_() ? TransferEnd::interrupted : TransferEnd::silent;
    const TargetReading before{TransferEnd::done, transfer.type, transfer.format, {}};
    const std::size_t size = transfer.bytes.size();
    const TransferEnd end = take(transfer, budget);
    if (end == TransferEnd::done && transfer.bytes.size() > size)
      continue;
    if (size > 0) {
      transfer.type = before.type;
      transfer.format = before.format;
    }
    return end;
  }
}

bool SelectionReader::awaitPiece(const SaveBudget& budget) {
  bool came = false;
  connection_.wait(
      [&](const xcb_generic_event_t& event) {
        const bool isPiece = isNewValue(event, connection_.window(), awaited_);
        came = came || isPiece;
        return isPiece;
      },
      [&] { return came || isInterrupted_(); }, silenceEnds(budget, longestSilenceBetweenPieces));
  return came && !isInterrupted_();
}

} // namespace tavrel
