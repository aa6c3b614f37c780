#pragma once

#include "platform/Presenter.h"

#include <QRect>

namespace tavrel {

class LinuxPresenter final : public Presenter {
public:
  void setActionTarget(MenuActionTarget* target) override { target_ = target; }
  void popUp(Menu& menu, Point where, MenuFont font) override;
  [[nodiscard]] Point pointerLocation() override;

  /// `popUp` beside an anchor in the toolkit's coordinates (origin at the top left).
  void popUpBeside(Menu& menu, const QRect& anchor, MenuFont font);

private:
  MenuActionTarget* target_ = nullptr;
  bool open_ = false;
};

} // namespace tavrel
