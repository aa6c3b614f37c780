#pragma once

#include "menu/MenuBuilder.h"

#include <string>

namespace tavrel {

/// Appends the entry of a record that is neither group nor separator, with its shortcut, icon and
/// browsing submenu, and after a folder its Option-key alternate.
void addRecordEntry(Menu& menu, const PropertyList& record, const std::string& title,
                    const MenuBuild& build);

/// The icon of a service's provider with the services badge; nothing when the provider has none.
[[nodiscard]] std::optional<Image> serviceMenuIconForPath(const std::string& path,
                                                          const MenuImages& images);

} // namespace tavrel
