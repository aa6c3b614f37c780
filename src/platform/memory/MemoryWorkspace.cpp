#include "platform/memory/MemoryWorkspace.h"

#include "base/Url.h"

namespace tavrel {

bool MemoryWorkspace::openFile(const std::string& path) {
  control.openedFiles.push_back(path);
  return control.opensFiles;
}

bool MemoryWorkspace::openUrl(const std::string& url) {
  control.openedUrls.push_back(url);
  return isUrl(url) && !urlScheme(url).empty() && control.opensUrls;
}

std::int32_t MemoryWorkspace::openUrlsWithApplication(const LaunchRequest& request) {
  control.launches.push_back(request);
  return control.launchStatus;
}

bool MemoryWorkspace::performFileOperation(FileOperation operation, const std::string& source,
                                           const std::string& destination,
                                           const std::vector<std::string>& names) {
  control.fileRequests.push_back({operation, source, destination, names});
  return control.fileOperationsSucceed;
}

bool MemoryWorkspace::removeFile(const std::string& path) {
  control.removedFiles.push_back(path);
  return control.fileOperationsSucceed;
}

std::int32_t MemoryWorkspace::systemVersion() {
  return control.systemVersion;
}

} // namespace tavrel
