#pragma once

#include "platform/linux/x11/clipboard/SelectionConnection.h"

namespace tavrel {

/// Requests that the session's clipboard manager save these targets of the clipboard, which this
/// program owns (SAVE_TARGETS). Serves it until it answers, but no longer than three seconds after
/// it last read something (`isBeingRead`), and ten altogether. False when there is none or it
/// refuses.
[[nodiscard]] bool saveToClipboardManager(SelectionConnection& connection,
                                          const std::vector<std::string>& targets,
                                          const std::function<bool()>& isBeingRead);

} // namespace tavrel
