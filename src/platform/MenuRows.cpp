#include "platform/MenuRows.h"

#include <utility>

namespace tavrel {

bool isAlternateOf(const MenuItem& alternate, const MenuItem& partner) {
  return alternate.isAlternate && !partner.isSeparator &&
         alternate.keyEquivalent == partner.keyEquivalent &&
         alternate.keyEquivalentModifierMask != partner.keyEquivalentModifierMask;
}

std::vector<const MenuItem*> visibleRows(const Menu& menu, OptionKey option) {
  std::vector<const MenuItem*> rows;
  const MenuItem* previous = nullptr;
  for (const auto& item : menu.items) {
    const MenuItem* partner = std::exchange(previous, item.get());
    if (item->hidden)
      continue;
    const bool partnerShows = partner != nullptr && !rows.empty() && rows.back() == partner;
    if (!partnerShows || !isAlternateOf(*item, *partner))
      rows.push_back(item.get());
    else if (option == OptionKey::down)
      rows.back() = item.get();
  }
  return rows;
}

} // namespace tavrel
