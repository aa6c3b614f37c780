#pragma once

#include "platform/linux/images/SpecialFolderIcons.h"

#include <QStringList>

#include <optional>
#include <string>

namespace tavrel {

enum class GenericIcon { file, folder, application };

/// Where the icon of a file may come from: the image file, else the theme, else the generic icon.
struct IconChoice {
  std::string picture;    ///< an image file; empty: none
  QStringList themeNames; ///< names in the icon theme, best first
  GenericIcon generic = GenericIcon::file;
};

/// The generic icon of files alone when nothing is at the path.
[[nodiscard]] IconChoice chooseIcon(const std::string& path, const SpecialFolderIcons& folders);

/// All that the icon of a file needs from the file system that it is on.
struct FileIconFacts {
  IconChoice choice;
  std::optional<std::string> picture; ///< the content of the choice's image file
};

/// Both steps at once. May take as long as the file system does, for ever when that does not
/// answer. Any thread.
[[nodiscard]] FileIconFacts readFileIconFacts(const std::string& path,
                                              const SpecialFolderIcons& folders);

} // namespace tavrel
