#pragma once

#include "platform/linux/x11/clipboard/ClipboardContents.h"
#include "platform/linux/x11/clipboard/SelectionReader.h"

#include <QLoggingCategory>

namespace tavrel {

/// "tavrel.clipboard", for all that concerns the clipboard.
Q_DECLARE_LOGGING_CATEGORY(clipboardLog)

/// All that an owner of the clipboard offers.
struct ClipboardReading {
  ClipboardContents contents;
  bool isComplete = false;    ///< nothing was left out
  bool isInterrupted = false; ///< the owner changed meanwhile: to be discarded
};

/// Reads every target that holds data, without those of the protocol itself (TIMESTAMP, MULTIPLE,
/// DELETE and the like) and those that link to a document. Stops at the first timeout (300 ms for
/// an answer, 600 ms for the next piece of one), after two seconds and 20 ms for each megabyte, and
/// at 256 MB. What could not be read is listed as unread; what is left out is logged.
[[nodiscard]] ClipboardReading readClipboard(SelectionConnection& connection,
                                             SelectionReader& reader);

} // namespace tavrel
