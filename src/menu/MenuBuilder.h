#pragma once

#include "menu/MenuIcons.h"
#include "platform/Menu.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// What building a menu needs to know.
struct MenuBuild {
  bool browseFolder = true;
  bool browsePackage = false;
  const MenuImages& images;
  MenuDelegate* delegate = nullptr; ///< of every submenu; not owned
};

/// The place of a record in the tree: its number in each level, from 1, outermost first.
using RecordPlace = std::vector<std::size_t>;

/// "2.4" for the fourth record of the group that is the second.
[[nodiscard]] std::string recordPlaceText(const RecordPlace& place);

/// Appends the entries of the records, groups as submenus of any depth. Returns the place of the
/// first record without a title: there the build ended, outer levels included, and what was built
/// before stands. Nothing when every record was built.
[[nodiscard]] std::optional<RecordPlace>
buildRecords(Menu& menu, const PropertyList::Array& records, const MenuBuild& build);

} // namespace tavrel
