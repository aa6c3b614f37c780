#pragma once

#include "platform/Image.h"

#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <string>

namespace tavrel {

enum class GenericIcon { file, folder, application };

/// Where the icon of a file may come from, best first.
struct IconChoice {
  std::string picture;    ///< an image file; empty: none
  QStringList themeNames; ///< names in the icon theme, best first
  GenericIcon generic = GenericIcon::file;
};

/// The person's folders that have an icon of their own, with its name in the theme.
using SpecialFolders = std::map<std::string, QString>;
[[nodiscard]] SpecialFolders specialFolders();

[[nodiscard]] IconChoice chooseIcon(const std::string& path, const SpecialFolders& folders);

/// What the icons of one desktop share.
class FileIcons {
public:
  explicit FileIcons(std::string resourceFolder) : resourceFolder_(std::move(resourceFolder)) {}

  /// Finds the icon now; an image without layers when not even the generic one is there.
  [[nodiscard]] Image find(const std::string& path);

private:
  [[nodiscard]] Image generic(GenericIcon icon);

  std::string resourceFolder_;
  std::unique_ptr<SpecialFolders> folders_;
  std::map<GenericIcon, Image> generic_;
};

} // namespace tavrel
