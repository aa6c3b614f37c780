#include "platform/common/MenuRows.h"

#include <utility>

#include <utility>

#include <utility>

namespace tavrel {

bool isAlternateOf(const MenuItem& alternate, const MenuItem& partner) {
  return alternate.isAlternate && !partner.isSeparator &&
         alternate.keyEquivalent == partner.keyEquivalent &&
         alternate.keyEquivalentModifierMask != partner.keyEquivalentModifierMask;
}

std::vector<std::uint32_t> visiblePlaces(const Menu& menu, OptionKey option) {
  std::vector<std::uint32_t> places;
  places.reserve(menu.items.size());
  for (std::uint32_t place = 0; place < menu.items.size(); ++place) {
    const MenuItem& item = *menu.items[place];
    if (item.hidden)
      continue;
    const bool partnerShows = place > 0 && !places.empty() && places.back() == place - 1;
    if (!partnerShows || !isAlternateOf(item, *menu.items[place - 1]))
      places.push_back(place);
    else if (option == OptionKey::down)
      places.back() = place;
  }
  return places;
}

std::vector<const MenuItem*> visibleRows(const Menu& menu, OptionKey option) {
  std::vector<const MenuItem*> rows;
  for (const std::uint32_t place : visiblePlaces(menu, option))
    rows.push_back(menu.items[place].get());
  return rows;
}

std::vector<NativeRow> nativeRows(const Menu& menu) {
  std::vector<NativeRow> rows;
  const MenuItem* previous = nullptr;
  for (const auto& item : menu.items) {
    const MenuItem* partner = std::exchange(previous, item.get());
    if (item->hidden)
      continue;
    const bool partnerShows =
        partner != nullptr && !rows.empty() && rows.back().item.get() == partner;
    const bool stands = partnerShows && isAlternateOf(*item, *partner);
    rows.push_back({item, stands ? RowRole::alternate : RowRole::plain});
  }
  return rows;
}

} // namespace tavrel
