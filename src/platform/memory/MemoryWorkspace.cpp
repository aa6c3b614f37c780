#include "platform/memory/MemoryWorkspace.h"

#include <string_view>

namespace tavrel {

namespace {

constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view schemeCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-.";

/// A scheme, a colon, and something after it without blanks.
bool isUrl(std::string_view text) {
  const std::size_t colon = text.find_first_not_of(schemeCharacters);
  return colon != std::string_view::npos && colon > 0 && text[colon] == ':' &&
         letters.find(text[0]) != std::string_view::npos && colon + 1 < text.size() &&
         text.find_first_of(" \t\r\n") == std::string_view::npos;
}

} // namespace

bool MemoryWorkspace::openFile(const std::string& path) {
  control.openedFiles.push_back(path);
  return control.opensFiles;
}

bool MemoryWorkspace::openUrl(const std::string& url) {
  control.openedUrls.push_back(url);
  return isUrl(url) && control.opensUrls;
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

std::int32_t MemoryWorkspace::systemVersion() {
  return control.systemVersion;
}

} // namespace tavrel
