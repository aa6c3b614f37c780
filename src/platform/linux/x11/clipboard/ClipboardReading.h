#pragma once

#include "platform/linux/x11/clipboard/ClipboardContents.h"
#include "platform/linux/x11/clipboard/SelectionReader.h"

namespace tavrel {

/// All that an owner of the clipboard offers.
struct ClipboardReading {
  ClipboardContents contents;
  bool isComplete = false;    ///< nothing was left out
  bool isInterrupted = false; ///< the owner changed meanwhile: worth nothing
};

/// Reads every target that says what is there (not what was asked when, or how to take part of it),
/// at the cost of at most one silence (300 ms before an answer, 600 ms before the next piece of
/// one), two seconds and 20 ms a megabyte altogether, and 256 MB. What could not be read is listed
/// as unread. What is left out is said on standard error.
[[nodiscard]] ClipboardReading readClipboard(SelectionConnection& connection,
                                             SelectionReader& reader);

} // namespace tavrel
