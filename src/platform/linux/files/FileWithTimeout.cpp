#include "platform/linux/files/FileWithTimeout.h"

#include "platform/linux/files/MountHealth.h"
#include "platform/linux/system/BoundedFile.h"

namespace tavrel {

std::optional<std::string> readFileWithTimeout(const std::string& path, std::size_t limit) {
  return askWithTimeout(path, FinalLink::follow, std::optional<std::string>(),
                        [path, limit] { return readFile(path, limit); });
}

std::optional<DesktopEntry> loadEntryWithTimeout(const std::string& path) {
  return askWithTimeout(path, FinalLink::follow, std::optional<DesktopEntry>(),
                        [path] { return loadDesktopEntry(path); });
}

} // namespace tavrel
