#pragma once

#include "base/PropertyList.h"
#include "platform/linux/x11/clipboard/SelectionConnection.h"

#include <optional>

namespace tavrel {

/// What reading all of a clipboard may cost together.
struct SaveBudget {
  SelectionTime end;
  std::size_t bytes;
};

enum class TransferEnd {
  done,
  refused,     ///< the owner says no
  silent,      ///< the owner did nothing for a while, or took too long altogether
  tooMuch,     ///< more than the budget has left
  interrupted, ///< the clipboard has another owner by now
};

struct TargetReading {
  TransferEnd end = TransferEnd::silent;
  xcb_atom_t type = XCB_ATOM_NONE;
  std::uint8_t format = 0;
  Bytes bytes;
};

/// Reads targets of the clipboard, in one piece or many (INCR). Serves events while it waits.
class SelectionReader {
public:
  /// `isInterrupted` is asked while waiting.
  SelectionReader(SelectionConnection& connection, std::function<bool()> isInterrupted);

  [[nodiscard]] TargetReading read(xcb_atom_t target, SaveBudget& budget);

  /// Answers that nobody waits for any more are thrown away, so that a slow owner gets to its end.
  void discard(const xcb_property_notify_event_t& notice);

private:
  [[nodiscard]] std::optional<xcb_atom_t> ask(xcb_atom_t target, const SaveBudget& budget);
  [[nodiscard]] TransferEnd take(TargetReading& transfer, SaveBudget& budget);
  [[nodiscard]] TransferEnd takePieces(TargetReading& transfer, SaveBudget& budget);
  [[nodiscard]] bool awaitPiece(const SaveBudget& budget);

  SelectionConnection& connection_;
  std::function<bool()> isInterrupted_;
  std::vector<xcb_atom_t> properties_;
  std::size_t next_ = 0;
  xcb_atom_t awaited_ = XCB_ATOM_NONE;
  xcb_timestamp_t time_ = XCB_CURRENT_TIME;
};

} // namespace tavrel
