#pragma once

#include "platform/linux/x11/clipboard/SelectionConnection.h"

namespace tavrel {

/// Asks the clipboard manager of the session, if there is one, to keep these targets of the
/// clipboard, which is ours. Serves it until it is done, but no longer than three seconds after it
/// last read anything (`isBeingRead`), and ten altogether. False when nobody keeps them.
[[nodiscard]] bool saveToClipboardManager(SelectionConnection& connection,
                                          const std::vector<std::string>& targets,
                                          const std::function<bool()>& isBeingRead);

} // namespace tavrel
