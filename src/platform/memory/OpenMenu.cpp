#include "platform/memory/OpenMenu.h"

#include <algorithm>

namespace tavrel {

OpenMenu::OpenMenu(Menu& menu, OptionKey option) : option_(option) {
  open(std::shared_ptr<Menu>(std::shared_ptr<Menu>(), &menu));
}

void OpenMenu::open(const std::shared_ptr<Menu>& menu) {
  levels_.push_back(menu);
  if (menu->delegate)
    menu->delegate->menuWillOpen(*menu);
  if (menu->delegate)
    menu->delegate->menuNeedsUpdate(*menu);
}

void OpenMenu::closeInnermost() {
  const std::shared_ptr<Menu> closed = std::move(levels_.back());
  levels_.pop_back();
  if (closed->delegate)
    closed->delegate->menuDidClose(*closed);
}

std::vector<const MenuItem*> OpenMenu::rows() const {
  return visibleRows(menu(), option_);
}

const MenuItem* OpenMenu::row(std::string_view title) const {
  const auto shown = rows();
  const auto found = std::find_if(shown.begin(), shown.end(), [&](const MenuItem* item) {
    return !item->isSeparator && item->title == title;
  });
  return found == shown.end() ? nullptr : *found;
}

bool OpenMenu::openSubmenu(std::string_view title) {
  const MenuItem* item = row(title);
  if (!item || !item->enabled || !item->submenu)
    return false;
  open(item->submenu);
  return true;
}

void OpenMenu::closeSubmenu() {
  if (levels_.size() > 1)
    closeInnermost();
}

bool OpenMenu::choose(const std::vector<std::string>& titles) {
  if (chosen_ || titles.empty())
    return false;
  const auto opens = [this](const std::string& title) { return openSubmenu(title); };
  return std::all_of(titles.begin(), std::prev(titles.end()), opens) && chooseRow(titles.back());
}

bool OpenMenu::chooseRow(std::string_view title) {
  const MenuItem* item = row(title);
  if (!item || !item->enabled || item->action == MenuAction::none)
    return false;
  const auto& items = menu().items;
  chosen_ = *std::find_if(items.begin(), items.end(),
                          [&](const auto& candidate) { return candidate.get() == item; });
  return true;
}

void OpenMenu::finish(MenuActionTarget* target) {
  if (chosen_ && target)
    target->menuItemChosen(*chosen_);
  while (!levels_.empty())
    closeInnermost();
}

} // namespace tavrel
