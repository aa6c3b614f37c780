#pragma once

#include "platform/Presenter.h"
#include "platform/common/MenuTracking.h"

#include <memory>

namespace tavrel {

/// Menus hung from an unseen panel under the pointer, which takes no other application's place.
class MacPresenter final : public Presenter {
public:
  MacPresenter();
  ~MacPresenter() override;

  void setActionTarget(MenuActionTarget* target) override { tracking_.setTarget(target); }
  void popUp(Menu& menu, Point where, MenuFont font) override;
  [[nodiscard]] Point pointerLocation() override;

  /// For the menus of the status bar.
  [[nodiscard]] MenuTracking& tracking() { return tracking_; }

private:
  struct Panel;

  MenuTracking tracking_;
  std::unique_ptr<Panel> panel_;
};

} // namespace tavrel
