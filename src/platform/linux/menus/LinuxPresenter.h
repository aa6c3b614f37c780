#pragma once

#include "platform/Presenter.h"
#include "platform/linux/menus/EntryDescription.h"
#include "platform/linux/menus/MenuPopup.h"

#include <QRect>

#include <functional>

namespace tavrel {

/// Shows menus, one at a time (MenuSession), at a point or beside an anchor on the screen.
class LinuxPresenter final : public Presenter {
public:
  /// Levels with more rows than `longestPlain` give the toolkit only the visible ones (MenuPopup).
  explicit LinuxPresenter(std::size_t longestPlain = longestPlainLevel)
      : longestPlain_(longestPlain) {}

  void setActionTarget(MenuActionTarget* target) override { target_ = target; }
  [[nodiscard]] bool isOpen() const { return open_; }
  /// Called when a menu has closed and what was chosen in it is done.
  void setClosedHandler(std::function<void()> closed) { closed_ = std::move(closed); }

  /// Without it the descriptions of entries for screen readers are in English.
  void setLocalize(Localize localize) { localize_ = std::move(localize); }

  void popUp(Menu& menu, Point where, MenuFont font) override;
  [[nodiscard]] Point pointerLocation() override;

  /// `popUp` beside an anchor in the toolkit's coordinates (origin at the top left).
  void popUpBeside(Menu& menu, const QRect& anchor, MenuFont font);

private:
  std::size_t longestPlain_;
  MenuActionTarget* target_ = nullptr;
  std::function<void()> closed_ = [] {};
  Localize localize_ = [](const std::string& text) { return text; };
  bool open_ = false;
};

} // namespace tavrel
