#pragma once

#include "platform/StatusBar.h"
#include "platform/common/MenuTracking.h"

namespace tavrel {

/// Items in the menu bar of the system.
class MacStatusBar final : public StatusBar {
public:
  /// The tracking must outlive the status bar and its items.
  explicit MacStatusBar(MenuTracking& tracking) : tracking_(tracking) {}

  [[nodiscard]] std::unique_ptr<StatusItem> addItem(double length) override;

private:
  MenuTracking& tracking_;
};

} // namespace tavrel
