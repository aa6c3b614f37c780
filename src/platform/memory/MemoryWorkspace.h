#pragma once

#include "platform/Workspace.h"

namespace tavrel {

/// A workspace that only writes down what it was asked. No file is opened or moved.
class MemoryWorkspace final : public Workspace {
public:
  /// One request to move or copy.
  struct FileRequest {
    FileOperation operation = FileOperation::move;
    std::string source;
    std::string destination;
    std::vector<std::string> names;
    friend bool operator==(const FileRequest&, const FileRequest&) = default;
  };

  struct Control {
    std::vector<std::string> openedFiles;
    std::vector<std::string> openedUrls;
    std::vector<LaunchRequest> launches;
    std::vector<FileRequest> fileRequests;
    std::vector<std::string> removedFiles; ///< every request, oldest first

    bool opensFiles = true; ///< the answer of `openFile`
    bool opensUrls = true;  ///< the answer of `openUrl` to a URL; to any other text it is false
    std::int32_t launchStatus = 0;
    bool fileOperationsSucceed = true; ///< moving, copying and removing
    std::int32_t systemVersion = 0x1068;
  } control;

  bool openFile(const std::string& path) override;
  bool openUrl(const std::string& url) override;
  std::int32_t openUrlsWithApplication(const LaunchRequest& request) override;
  bool performFileOperation(FileOperation operation, const std::string& source,
                            const std::string& destination,
                            const std::vector<std::string>& names) override;
  bool removeFile(const std::string& path) override;
  [[nodiscard]] std::int32_t systemVersion() override;
};

} // namespace tavrel
