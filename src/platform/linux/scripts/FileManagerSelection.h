#pragma once

#include "platform/linux/scripts/ScriptDesktop.h"

namespace tavrel {

/// The paths of what is selected in the file manager of that role, "Finder" or "Path Finder", when
/// it is in front; none when it is not, or when nothing is selected. No file manager has an
/// interface for that, so a copy keystroke is sent to it; afterwards the clipboard is restored.
/// Takes a third of a second at most.
[[nodiscard]] std::vector<std::string> selectionOfFileManager(ScriptDesktop& desktop,
                                                              const std::string& role);

} // namespace tavrel
