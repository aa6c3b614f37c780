#include "platform/memory/MemoryPresenter.h"

#include <utility>

namespace tavrel {

void MemoryPresenter::popUp(Menu& menu, Point where, MenuFont font) {
  if (std::exchange(opening_, true))
    return;
  control.shown.push_back({&menu, where, font});
  OpenMenu open(menu, control.option);
  control.open = &open;
  if (control.person)
    control.person(open);
  control.open = nullptr;
  opening_ = false; // a chosen entry may be at work for long: the menu can open again meanwhile
  open.finish(target_);
}

} // namespace tavrel
