#pragma once

#include "platform/linux/ScriptDesktop.h"

namespace tavrel {

/// `display dialog`, `display alert`, `choose from list`, `choose file`, `choose folder` and
/// `choose file name`. They wait for the person; the button that cancels is error -128.
[[nodiscard]] const ScriptCommands& dialogCommands();

/// `display notification`, by the desktop's notification service.
[[nodiscard]] script::HostAnswer displayNotification(ScriptDesktop& desktop,
                                                     const script::HostEvent& event);

} // namespace tavrel
