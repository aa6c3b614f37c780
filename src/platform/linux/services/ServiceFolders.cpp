#include "platform/linux/services/ServiceFolders.h"

#include "base/PathString.h"
#include "platform/linux/files/MountHealth.h"
#include "platform/linux/processes/ProgramSearch.h"
#include "platform/linux/system/XdgFolders.h"

#include <algorithm>
#include <filesystem>

namespace tavrel {

namespace {
namespace fs = std::filesystem;

/// Sorted by name, so that of "X.py" and "X.sh" it is always the same one that is the service X.
std::vector<std::string> filesNow(const std::string& folder) {
  std::vector<std::string> files;
  std::error_code error;
  for (fs::directory_iterator each(folder, error), end; !error && each != end;
       each.increment(error))
    files.push_back(each->path().string());
  std::ranges::sort(files);
  return files;
}

std::vector<std::string> filesIn(const std::string& folder) {
  return askWithTimeout(folder, FinalLink::follow, std::vector<std::string>(),
                        [folder] { return filesNow(folder); });
}

bool isServiceNamed(const std::string& file, const std::string& name) {
  const std::string fileName = lastPathComponent(file);
  return !fileName.starts_with('.') && deletingPathExtension(fileName) == name &&
         findProgram(file).has_value();
}
} // namespace

std::vector<std::string> serviceFolders(const std::string& resourceFolder) {
  std::vector<std::string> folders = xdgFolders().data;
  for (std::string& folder : folders)
    folder = appendingPathComponent(folder, "tavrel/services");
  folders.push_back(appendingPathComponent(resourceFolder, "services"));
  return folders;
}

std::optional<std::string> findService(const std::vector<std::string>& folders,
                                       const std::string& name) {
  for (const std::string& folder : folders)
    for (const std::string& file : filesIn(folder))
      if (isServiceNamed(file, name))
        return file;
  return std::nullopt;
}

} // namespace tavrel
