#pragma once

#include "base/PropertyList.h"
#include "platform/linux/x11/clipboard/SelectionConnection.h"

#include <optional>

namespace tavrel {

/// What reading all targets of a clipboard may still cost.
struct ReadBudget {
  SelectionTime end;
  std::size_t bytes;
};

enum class TransferEnd {
  done,
  refused,     ///< the owner answered that it cannot
  timedOut,    ///< no answer or no further piece before the timeout, or the budget's time is over
  tooMuch,     ///< more bytes than the budget has left
  interrupted, ///< the selection has another owner by now
};

struct TargetReading {
  TransferEnd end = TransferEnd::timedOut;
  xcb_atom_t type = XCB_ATOM_NONE;
  std::uint8_t format = 0;
  Bytes bytes;
};

/// Reads targets of one selection, whole or in pieces (INCR). While it waits, other events go to
/// the handler of the connection.
class SelectionReader {
public:
  /// `selection`: CLIPBOARD or PRIMARY. `isInterrupted` ends the wait when it answers true: the
  /// selection has another owner.
  SelectionReader(SelectionConnection& connection, const std::string& selection,
                  std::function<bool()> isInterrupted);

  [[nodiscard]] TargetReading read(xcb_atom_t target, ReadBudget& budget);

  /// Deletes a property that arrived after its timeout, so that a slow owner can finish its INCR
  /// transfer.
  void discardLate(const xcb_property_notify_event_t& notice);

private:
  [[nodiscard]] std::optional<xcb_atom_t> requestTarget(xcb_atom_t target,
                                                        const ReadBudget& budget);
  [[nodiscard]] TransferEnd readProperty(TargetReading& reading, ReadBudget& budget);
  [[nodiscard]] TransferEnd readPieces(TargetReading& reading, ReadBudget& budget);
  [[nodiscard]] bool waitForPiece(const ReadBudget& budget);

  SelectionConnection& connection_;
  xcb_atom_t selection_;
  std::function<bool()> isInterrupted_;
  std::vector<xcb_atom_t> properties_;
  std::size_t next_ = 0;
  xcb_atom_t awaitedProperty_ = XCB_ATOM_NONE;
};

} // namespace tavrel
