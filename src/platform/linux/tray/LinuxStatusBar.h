#pragma once

#include "platform/StatusBar.h"

namespace tavrel {

class LinuxPresenter;

/// Shows items in a StatusNotifierItem host where one runs, else in an XEmbed tray. An item moves
/// when a host or tray appears or ends, as when the panel restarts.
class LinuxStatusBar final : public StatusBar {
public:
  /// The presenter shows the items' menus; it must outlive the status bar and its items.
  explicit LinuxStatusBar(LinuxPresenter& presenter) : presenter_(presenter) {}

  [[nodiscard]] std::unique_ptr<StatusItem> addItem(double length) override;

private:
  LinuxPresenter& presenter_;
};

} // namespace tavrel
