#pragma once

#include "controller/MenuImages.h"
#include "platform/Files.h"
#include "platform/Image.h"
#include "platform/Menu.h"

#include <optional>
#include <string>

namespace tavrel {

/// Loads what is still missing, by name from the resources; a missing image stays missing.
void loadMenuImages(MenuImages& images);

/// Forgets the icons shared by the submenus, so that the next loading fetches them anew.
void releaseSharedIcons();

/// Gives an entry the icon of the file at a path, with a badge over it when there is one. An entry
/// whose path has no icon is marked "?? " and disabled. Does nothing while icons are not shown.
void setMenuItemIconWithBadge(MenuItem& item, const std::optional<std::string>& path,
                              const std::optional<Image>& badge);
void setMenuItemIcon(MenuItem& item, const std::optional<std::string>& path);

/// The same for a file whose kind a listing has told.
void setListedFileIcon(MenuItem& item, const std::string& path, FileKind kind,
                       const std::optional<Image>& badge);

/// An image with a badge over it, or the image alone when there is no badge.
[[nodiscard]] Image badged(Image image, const std::optional<Image>& badge);

} // namespace tavrel
