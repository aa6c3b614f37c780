#include "platform/Menu.h"

#include <utility>

namespace tavrel {

namespace {
using Items = std::vector<std::shared_ptr<MenuItem>>;

void takeSubmenus(Items& items, std::vector<std::shared_ptr<Menu>>& pending) {
  for (const auto& item : items)
    if (item.use_count() == 1 && item->submenu)
      pending.push_back(std::exchange(item->submenu, nullptr));
}
} // namespace

Menu::~Menu() {
  removeAll();
}

MenuItem& Menu::add(MenuItem item) {
  return *items.emplace_back(std::make_shared<MenuItem>(std::move(item)));
}

MenuItem& Menu::addSeparator() {
  MenuItem separator;
  separator.isSeparator = true;
  return add(std::move(separator));
}

void Menu::removeAll() {
  std::vector<std::shared_ptr<Menu>> pending;
  takeSubmenus(items, pending);
  items.clear();
  while (!pending.empty()) {
    const std::shared_ptr<Menu> submenu = std::move(pending.back());
    pending.pop_back();
    if (submenu.use_count() == 1)
      takeSubmenus(submenu->items, pending);
  }
}

} // namespace tavrel
