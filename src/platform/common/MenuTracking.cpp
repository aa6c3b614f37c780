#include "platform/common/MenuTracking.h"

#include <algorithm>
#include <utility>

namespace tavrel {

MenuTracking::Levels::iterator MenuTracking::find(const Menu& menu) {
  return std::find_if(levels_.begin(), levels_.end(),
                      [&](const Level& level) { return level.menu.get() == &menu; });
}

bool MenuTracking::isOpen() const {
  return std::any_of(levels_.begin(), levels_.end(),
                     [](const Level& level) { return level.state != State::filled; });
}

void MenuTracking::update(const std::shared_ptr<Menu>& menu) {
  tellInnerClosed();
  if (find(*menu) == levels_.end())
    levels_.push_back({menu, State::filled});
  if (MenuDelegate* delegate = menu->delegate) {
    delegate->menuWillOpen(*menu);
    delegate->menuNeedsUpdate(*menu);
  }
}

// The outermost one waits: what was chosen in it may not have been told yet.
void MenuTracking::tellInnerClosed() {
  for (auto at = levels_.size(); at > 1; --at) {
    if (at > levels_.size() || levels_[at - 1].state != State::closed)
      continue;
    const std::shared_ptr<Menu> menu = std::move(levels_[at - 1].menu);
    levels_.erase(levels_.begin() + static_cast<std::ptrdiff_t>(at - 1));
    tellClosed(*menu);
  }
}

void MenuTracking::opened(const Menu& menu) {
  if (const auto level = find(menu); level != levels_.end())
    level->state = State::open;
}

void MenuTracking::closed(const Menu& menu) {
  if (const auto level = find(menu); level != levels_.end())
    level->state = State::closed;
}

void MenuTracking::chosen(const std::shared_ptr<MenuItem>& item) {
  if (isOpen())
    chosen_ = item;
  else if (target_)
    target_->menuItemChosen(*item);
}

void MenuTracking::finish() {
  Levels ending = std::exchange(levels_, {});
  const auto item = std::exchange(chosen_, nullptr);
  gone_.insert(gone_.end(), ending.begin(), ending.end());
  const std::size_t first = gone_.size() - ending.size();
  if (item && target_)
    target_->menuItemChosen(*item);
  while (gone_.size() > first) { // what was chosen may have had menus forgotten
    const std::shared_ptr<Menu> menu = std::move(gone_.back().menu);
    gone_.pop_back();
    tellClosed(*menu);
  }
}

void MenuTracking::tellClosed(Menu& menu) {
  if (menu.delegate)
    menu.delegate->menuDidClose(menu);
}

void MenuTracking::forget(const Menu& menu) {
  const auto isIt = [&](const Level& level) { return level.menu.get() == &menu; };
  std::erase_if(levels_, isIt);
  std::erase_if(gone_, isIt);
}

} // namespace tavrel
