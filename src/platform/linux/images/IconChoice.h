#pragma once

#include "platform/linux/system/SpecialFolders.h"

#include <QStringList>

#include <string>

namespace tavrel {

enum class GenericIcon { file, folder, application };

/// Where the icon of a file may come from, best first.
struct IconChoice {
  std::string picture;    ///< an image file; empty: none
  QStringList themeNames; ///< names in the icon theme, best first
  GenericIcon generic = GenericIcon::file;
};

/// Nothing but the generic icon of files for a path where nothing is.
[[nodiscard]] IconChoice chooseIcon(const std::string& path, const SpecialFolders& folders);

} // namespace tavrel
