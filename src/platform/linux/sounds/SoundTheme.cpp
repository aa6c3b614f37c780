#include "platform/linux/sounds/SoundTheme.h"

#include "platform/linux/system/XdgFolders.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace tavrel {

namespace {

namespace fs = std::filesystem;

bool holdsSound(const fs::path& folder, const std::string& name) {
  constexpr std::array endings{".oga", ".ogg", ".wav"};
  std::error_code ignored;
  return std::any_of(endings.begin(), endings.end(), [&](const char* ending) {
    return fs::is_regular_file(folder / (name + ending), ignored);
  });
}

} // namespace

bool isInSoundTheme(const std::string& name) {
  for (const std::string& data : xdgFolders().data) {
    std::error_code error;
    for (const auto& theme : fs::directory_iterator(data + "/sounds", error))
      if (holdsSound(theme.path(), name) || holdsSound(theme.path() / "stereo", name))
        return true;
  }
  return false;
}

} // namespace tavrel
