#pragma once

#include <QString>

#include <map>
#include <string>

namespace tavrel {

/// The person's folders that have an icon of their own, with its name in the theme.
using SpecialFolders = std::map<std::string, QString>;
[[nodiscard]] SpecialFolders specialFolders();

} // namespace tavrel
