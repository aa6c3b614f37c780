#pragma once

#include "platform/linux/scripts/ScriptDesktop.h"

namespace tavrel {

/// What scripts ask of the desktop and no application: files, the clipboard, sound, time, places.
[[nodiscard]] const ScriptCommands& additionCommands();

/// `read`, `write`, `info for`, `list folder`, `get eof`, `set eof`, `open for access` and
/// `close access`; what is read must be text.
[[nodiscard]] const ScriptCommands& fileCommands();

} // namespace tavrel
