#pragma once

#include "platform/Presenter.h"
#include "platform/memory/OpenMenu.h"

#include <functional>
#include <vector>

namespace tavrel {

/// Shows menus to a test: what a user would do is a script that runs while a menu is open.
class MemoryPresenter final : public Presenter {
public:
  struct Shown {
    const Menu* menu = nullptr;
    Point where;
    MenuFont font = MenuFont::standard;
  };

  struct Control {
    /// Runs while a menu is open; the menu closes when it returns. None: it closes at once.
    std::function<void(OpenMenu&)> person;
    OptionKey option = OptionKey::up; ///< as a menu opens
    Point pointer;
    std::vector<Shown> shown; ///< every menu that opened, oldest first
    OpenMenu* open = nullptr; ///< the menu on the screen; null when there is none
  };
  Control control;

  void setActionTarget(MenuActionTarget* target) override { target_ = target; }
  void popUp(Menu& menu, Point where, MenuFont font) override;
  [[nodiscard]] Point pointerLocation() override { return control.pointer; }

private:
  MenuActionTarget* target_ = nullptr;
  bool opening_ = false;
};

} // namespace tavrel
