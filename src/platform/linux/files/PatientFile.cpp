#include "platform/linux/files/PatientFile.h"

#include "platform/linux/files/MountHealth.h"
#include "platform/linux/system/BoundedFile.h"

namespace tavrel {

std::optional<std::string> readFilePatiently(const std::string& path, std::size_t limit) {
  return askPatiently(path, FinalLink::follow, std::optional<std::string>(),
                      [path, limit] { return readFile(path, limit); });
}

std::optional<DesktopEntry> loadEntryPatiently(const std::string& path) {
  return askPatiently(path, FinalLink::follow, std::optional<DesktopEntry>(),
                      [path] { return loadDesktopEntry(path); });
}

} // namespace tavrel
