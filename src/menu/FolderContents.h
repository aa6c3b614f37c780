#pragma once

#include "menu/MenuBuilder.h"
#include "menu/PathHelpers.h"

#include <memory>
#include <string>

namespace tavrel {

/// Whether something of this kind gets a submenu of what is in it.
[[nodiscard]] bool isBrowsable(DirectoryKind kind, const MenuBuild& build);

/// A submenu that is filled when it opens.
[[nodiscard]] std::shared_ptr<Menu> browsingSubmenu(const std::string& path,
                                                    const MenuBuild& build);

/// Appends an entry for everything that a folder shows, in numeric order of the raw names, and
/// after a folder its Option-key alternate. The entries hold their path. A folder that cannot be
/// read adds nothing.
void addFolderContents(Menu& menu, const std::string& folder, const MenuBuild& build);

} // namespace tavrel
