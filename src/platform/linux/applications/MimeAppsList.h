#pragma once

#include "platform/linux/system/XdgFolders.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// One mimeapps.list (freedesktop.org MIME applications 1.0.1): ids of desktop entries by MIME
/// type, in their order.
struct MimeAppsList {
  using Choices = std::map<std::string, std::vector<std::string>, std::less<>>;
  Choices defaults;
  Choices added;
  Choices removed;
};

/// Malformed lines and other groups are skipped.
[[nodiscard]] MimeAppsList parseMimeAppsList(std::string_view text);

/// Where a list is. Of a list for one desktop (kde-mimeapps.list) only the defaults count.
struct MimeAppsFile {
  std::string path;
  bool desktopSpecific = false;
  /// The index of the data folder whose applications come right after this list.
  std::size_t dataFolder = 0;
};

/// Where lists may be, most important first.
[[nodiscard]] std::vector<MimeAppsFile> mimeAppsFiles(const XdgFolders& folders);

} // namespace tavrel
