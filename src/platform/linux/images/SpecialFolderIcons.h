#pragma once

#include <QString>

#include <map>
#include <string>

namespace tavrel {

/// The names in the icon theme for folders that have an icon of their own (documents, downloads,
/// home,
/// ...), by path.
using SpecialFolderIcons = std::map<std::string, QString>;
[[nodiscard]] SpecialFolderIcons specialFolderIcons();

} // namespace tavrel
