#pragma once

#include "platform/linux/x11/clipboard/ClipboardTargets.h"
#include "platform/linux/x11/clipboard/SelectionConnection.h"

#include <list>

namespace tavrel {

/// Sends data to other programs: at once into a property of theirs, or, when it is large, piece by
/// piece, each when the program has deleted the one before (INCR). A transfer is dropped when the
/// program deletes nothing for five seconds.
class IncrementalSends {
public:
  explicit IncrementalSends(SelectionConnection& connection);

  void send(xcb_window_t requestor, xcb_atom_t property, const ServedTarget& target);
  void propertyDeleted(xcb_window_t requestor, xcb_atom_t property);
  void requestorGone(xcb_window_t requestor);
  void dropIdle();
  [[nodiscard]] bool isIdle() const { return sends_.empty(); }

private:
  struct Send {
    xcb_window_t requestor;
    xcb_atom_t property;
    xcb_atom_t type;
    std::uint8_t format;
    SharedBytes bytes;
    std::size_t offset;
    SelectionTime lastProgress;
  };
  void begin(Send send);
  [[nodiscard]] bool sendPiece(Send& send);
  void put(const Send& send, std::size_t from, std::size_t size);
  void stopWatching(xcb_window_t requestor);

  SelectionConnection& connection_;
  std::size_t largestPiece_;
  std::list<Send> sends_;
};

} // namespace tavrel
