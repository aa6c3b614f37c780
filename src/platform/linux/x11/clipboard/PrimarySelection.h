#pragma once

#include "platform/linux/x11/clipboard/ClipboardReading.h"

namespace tavrel {

/// The selection PRIMARY: what is marked in some program, without having been copied.
class PrimarySelection {
public:
  explicit PrimarySelection(SelectionConnection& connection)
      : connection_(connection), reader_(connection, "PRIMARY", [] { return false; }) {}

  /// Whether it is of the program of this window: something is marked there, or was.
  [[nodiscard]] bool isOf(xcb_window_t window);
  [[nodiscard]] ClipboardReading read() { return readClipboard(connection_, reader_); }
  void discardLate(const xcb_property_notify_event_t& notice) { reader_.discardLate(notice); }

private:
  SelectionConnection& connection_;
  SelectionReader reader_;
};

} // namespace tavrel
