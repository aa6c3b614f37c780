#pragma once

#include "platform/Image.h"
#include "platform/Menu.h"

#include <memory>

namespace tavrel {

/// One item in the desktop's status area. It leaves the area when it is destroyed.
class StatusItem {
public:
  virtual ~StatusItem() = default;
  virtual void setImage(const Image& image) = 0;
  /// Whether the item is highlighted while its menu is open; desktops that always do may ignore it.
  virtual void setHighlightMode(bool highlight) = 0;
  /// The menu that a click opens, through the same callbacks as `Presenter::popUp`; not owned,
  /// must outlive the item. Null: a click does nothing.
  virtual void setMenu(Menu* menu) = 0;
};

/// The desktop's status area.
class StatusBar {
public:
  virtual ~StatusBar() = default;
  /// A new item. `length` is its width in points, -1.0 for as wide as its image needs. Never null:
  /// on a desktop without a status area the item waits, unseen, for one to appear.
  [[nodiscard]] virtual std::unique_ptr<StatusItem> addItem(double length) = 0;
};

} // namespace tavrel
