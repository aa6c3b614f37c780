#pragma once

#include "platform/Presenter.h"
#include "platform/StatusBar.h"

#include <vector>

namespace tavrel {

/// A status area whose items a test sees and clicks.
class MemoryStatusBar final : public StatusBar {
public:
  struct Item {
    double length = 0;
    std::vector<Image> images; ///< every one that was set, the one that shows last
    bool highlight = false;
    Menu* menu = nullptr;
  };

  struct Control {
    std::vector<std::shared_ptr<const Item>> items; ///< those in the area, oldest first
    Point corner{1000, 780};                        ///< where an item's menu opens
  };
  Control control;

  /// The presenter shows the items' menus; it must outlive the status bar.
  explicit MemoryStatusBar(Presenter& presenter) : presenter_(presenter) {}

  [[nodiscard]] std::unique_ptr<StatusItem> addItem(double length) override;

  /// A user's click on an item of the area; returns when the menu has closed.
  void click(std::size_t index = 0);

private:
  Presenter& presenter_;
};

} // namespace tavrel
