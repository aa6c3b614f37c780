#pragma once

#include "platform/linux/scripts/ScriptDesktop.h"

#include <QTimer>

namespace tavrel {

/// While it lives, an open dialog is cancelled as soon as its script is to stop.
class DialogCanceller {
public:
  explicit DialogCanceller(std::function<bool()> shouldStop);

private:
  QTimer timer_;
};

/// `display dialog`, `display alert`, `choose from list`, `choose file`, `choose folder` and
/// `choose file name`. They wait for the user; cancelling is error -128.
[[nodiscard]] const ScriptCommands& dialogCommands();

/// `display notification`, by the desktop's notification service.
[[nodiscard]] script::HostAnswer displayNotification(ScriptDesktop& desktop,
                                                     const script::HostEvent& event);

} // namespace tavrel
