#include "menu/MenuEdits.h"

namespace tavrel {

namespace {
MenuItem* entryAt(const Menu& menu, std::size_t index) {
  return index < menu.items.size() ? menu.items[index].get() : nullptr;
}
} // namespace

bool isHiddenMenuItem(const Menu& menu, std::size_t index) {
  const MenuItem* item = entryAt(menu, index);
  return item && item->hidden;
}

void hideMenuItem(Menu& menu, std::size_t index, bool hidden) {
  if (MenuItem* item = entryAt(menu, index))
    item->hidden = hidden;
}

void disableMenuItem(Menu& menu, std::size_t index) {
  if (MenuItem* item = entryAt(menu, index))
    item->enabled = false;
}

void setMenuItemIndent(Menu& menu, std::size_t index, int level) {
  MenuItem* item = entryAt(menu, index);
  if (item && level >= 1)
    item->indentation = level;
}

void validateSeparator(Menu& menu, std::size_t start) {
  bool pending = false;
  for (std::size_t i = start; i < menu.items.size(); ++i) {
    if (isHiddenMenuItem(menu, i))
      continue;
    if (!menu.items[i]->isSeparator)
      pending = false;
    else if (!pending)
      pending = true;
    else
      hideMenuItem(menu, start, true);
  }
  if (pending)
    hideMenuItem(menu, start, true);
}

} // namespace tavrel
