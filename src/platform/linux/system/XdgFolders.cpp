#include "platform/linux/system/XdgFolders.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace tavrel {

namespace {

std::string environment(const char* name, const std::string& fallback) {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0' ? value : fallback;
}

std::vector<std::string> parts(const std::string& list) {
  std::vector<std::string> result;
  std::istringstream stream(list);
  for (std::string part; std::getline(stream, part, ':');)
    if (!part.empty())
      result.push_back(part);
  return result;
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
  const std::string home = environment("HOME", "/");
  XdgFolders folders;
  folders.data = absoluteOnly(parts(environment("XDG_DATA_HOME", home + "/.local/share") + ":" +
                                    environment("XDG_DATA_DIRS", "/usr/local/share:/usr/share")));
  folders.config = absoluteOnly(parts(environment("XDG_CONFIG_HOME", home + "/.config") + ":" +
                                      environment("XDG_CONFIG_DIRS", "/etc/xdg")));
  folders.desktops = parts(lowerCase(environment("XDG_CURRENT_DESKTOP", "")));
  return folders;
}

} // namespace tavrel
