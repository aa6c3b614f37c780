#include "platform/linux/system/XdgFolders.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace tavrel {

namespace {

std::string environmentOr(const char* name, const std::string& fallback) {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0' ? value : fallback;
}

std::vector<std::string> splitAtColons(const std::string& list) {
  std::vector<std::string> items;
  std::istringstream stream(list);
  for (std::string item; std::getline(stream, item, ':');)
    if (!item.empty())
      items.push_back(item);
  return items;
}

std::vector<std::string> absoluteOnly(std::vector<std::string> folders) {
  std::erase_if(folders, [](const std::string& each) { return !each.starts_with('/'); });
  return folders;
}

std::string lowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
  });
  return text;
}

} // namespace

XdgFolders xdgFolders() {
  const std::string home = environmentOr("HOME", "/");
  XdgFolders folders;
  folders.data =
      absoluteOnly(splitAtColons(environmentOr("XDG_DATA_HOME", home + "/.local/share") + ":" +
                                 environmentOr("XDG_DATA_DIRS", "/usr/local/share:/usr/share")));
  folders.config = absoluteOnly(splitAtColons(environmentOr("XDG_CONFIG_HOME", home + "/.config") +
                                              ":" + environmentOr("XDG_CONFIG_DIRS", "/etc/xdg")));
  folders.desktops = splitAtColons(lowerCase(environmentOr("XDG_CURRENT_DESKTOP", "")));
  return folders;
}

} // namespace tavrel
