#pragma once

#include "platform/Pasteboards.h"

namespace tavrel {

/// The name of the pasteboard that keeps the user's clipboard during one capture or paste.
inline constexpr const char* TVRBackupPboard = "TVRBackupPboard";

/// Makes the destination offer what the source offers, in the same order; a type that the source
/// has no data for has none there either.
void copyPasteboard(Pasteboard& source, Pasteboard& destination);

/// What the clipboard holds becomes the captured selection, which is never without a type: an empty
/// string where the clipboard could not be read.
void captureGeneralPasteboard();

/// Leaves an empty string: a cleared pasteboard is never without a type.
void clearPasteboard(Pasteboard& pasteboard);

/// Saves the clipboard, and puts it back; nothing of it stays behind then.
void backUpGeneralPasteboard();
void restoreGeneralPasteboard();

/// Puts the captured selection on the clipboard, to stay there.
void copyPrivateToGeneralPasteboard();

} // namespace tavrel
