#pragma once

#include "platform/Presenter.h"

#include <QPoint>

namespace tavrel {

class LinuxPresenter final : public Presenter {
public:
  void setActionTarget(MenuActionTarget* target) override { target_ = target; }
  void popUp(Menu& menu, Point where, MenuFont font) override;
  [[nodiscard]] Point pointerLocation() override;

  /// `popUp` at a place in the toolkit's coordinates (origin at the top left).
  void popUpAt(Menu& menu, QPoint topLeft, MenuFont font);

private:
  MenuActionTarget* target_ = nullptr;
  bool open_ = false;
};

} // namespace tavrel
