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

/// Lines that mean nothing are skipped.
[[nodiscard]] MimeAppsList parseMimeAppsList(std::string_view text);

/// The lists of one folder: those for the person's desktops come first, and tell of defaults alone.
struct MimeAppsFile {
  std::string path;
  bool desktopSpecific = false;
  /// Counts the folders of applications that are less important than this list.
  std::size_t dataFolder = 0;
};

/// Where lists may be, most important first.
[[nodiscard]] std::vector<MimeAppsFile> mimeAppsFiles(const XdgFolders& folders);

} // namespace tavrel
