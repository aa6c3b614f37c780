#include "platform/linux/menus/LevelRows.h"

#include <algorithm>

namespace tavrel {

namespace {
const std::shared_ptr<MenuItem>& blankEntry() {
  static const auto blank = [] {
    auto item = std::make_shared<MenuItem>();
    item->enabled = false;
    return item;
  }();
  return blank;
}

MarkColumns columnsOf(const Menu& menu) {
  MarkColumns columns;
  for (const auto& item : menu.items) {
    columns.tick |= !item->hidden && item->state == MenuItemState::on;
    columns.image |= !item->hidden && item->image.has_value();
  }
  return columns;
}
} // namespace

bool canBeOpened(const MenuItem& item) {
  return item.enabled && item.submenu;
}

bool canBeChosen(const MenuItem& item) {
  return item.enabled && !item.isSeparator && item.action != MenuAction::none;
}

LevelRows::LevelRows(const Menu& menu) : items_(menu.items), columns_(columnsOf(menu)) {
  items_.push_back(blankEntry());
  up_ = shownPlaces(menu, OptionKey::up);
  down_ = shownPlaces(menu, OptionKey::down);
}

LevelRows::Places LevelRows::shownPlaces(const Menu& menu, OptionKey option) const {
  Places shown = visiblePlaces(menu, option);
  if (shown.empty())
    shown.push_back(static_cast<std::uint32_t>(items_.size() - 1));
  shown.shrink_to_fit();
  return shown;
}

std::vector<std::shared_ptr<MenuItem>> LevelRows::slice(std::size_t first,
                                                        std::size_t count) const {
  std::vector<std::shared_ptr<MenuItem>> items;
  for (std::size_t row = first; row < std::min(first + count, size()); ++row)
    items.push_back(at(row));
  return items;
}

bool LevelRows::canBeUsed(std::size_t row) const {
  return canBeOpened(*at(row)) || canBeChosen(*at(row));
}

std::vector<const MenuItem*> LevelRows::everyItem() const {
  std::vector<const MenuItem*> every;
  for (const Places* places : {&up_, &down_}) {
    if (places == &down_ && !hasAlternates())
      break;
    for (const std::uint32_t place : *places)
      every.push_back(items_[place].get());
  }
  return every;
}

} // namespace tavrel
