#pragma once

#include "platform/linux/scripts/ScriptDesktop.h"

namespace tavrel {

/// The commands of scripting additions, which are for no application: clipboard, sound, time,
/// folders.
[[nodiscard]] const ScriptCommands& additionCommands();

/// `read`, `write`, `info for`, `list folder`, `get eof`, `set eof`, `open for access` and
/// `close access`; what is read must be text.
[[nodiscard]] const ScriptCommands& fileCommands();

} // namespace tavrel
